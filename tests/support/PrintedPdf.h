#pragma once

#include <QImage>
#include <QRectF>
#include <QStringList>

/// What is on the pages of a PDF file, as other programs read it. Lengths are points, from the top left
/// corner of the paper.
class PrintedPdf
{
public:
    explicit PrintedPdf(const QString &path);

    /// The text of each page, laid out as on the page.
    QStringList pages() const;
    /// Of the first such word, on page \a page, from 1, or on any where that is 0. Empty when there is none.
    QRectF placeOf(const QString &word, int page = 0) const;
    QSizeF paper() const;
    QString title() const;
    QStringList fonts() const;
    /// The sizes that the pictures are shown in, rounded.
    QList<QSize> pictureSizes() const;
    /// A picture of page \a page, from 1, four dots to the point.
    QImage picture(int page) const;

private:
    QByteArray ask(const char *program, QStringList arguments) const;
    QString info(const char *name) const;

    QString m_path;
};

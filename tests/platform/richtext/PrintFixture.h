#pragma once

#include "Pictures.h"
#include "PrintedPdf.h"
#include "RichTextFixture.h"

#include <QPrinter>
#include <QStandardPaths>
#include <QTemporaryDir>

/// A control whose text is printed to a PDF file, on A4 with margins of 20 mm where the text says nothing
/// else.
class PrintFixture : public RichTextFixture
{
protected:
    PrintFixture()
        : pdf(folder.filePath(QStringLiteral("a.pdf")))
    {
        printer.setOutputFileName(file());
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
    }
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    /// The printed pages' text.
    QStringList print()
    {
        box.SelPrint(&printer);
        return pdf.pages();
    }
    double leftOf(const char *word) { return pdf.placeOf(QString::fromLatin1(word)).left(); }
    double topOf(const char *word) { return pdf.placeOf(QString::fromLatin1(word)).top(); }
    void insertPicture(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        QTextCursor cursor = box.textCursor();
        Pictures::insert(cursor, image, 1e6);
    }
    /// The dots of a page's picture in \a area, in points, that are of \a color.
    int dots(const QRectF &area, const QColor &color, int page = 1)
    {
        const QImage picture = pdf.picture(page).copy(QRectF(area.topLeft() * 4, area.size() * 4).toRect());
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                count += picture.pixelColor(x, y) == color;
        }
        return count;
    }
    QString file() const { return folder.filePath(QStringLiteral("a.pdf")); }

    static constexpr double paperMargin = 20 / 25.4 * 72; // points
    QTemporaryDir folder;
    QPrinter printer{QPrinter::HighResolution};
    PrintedPdf pdf;
};

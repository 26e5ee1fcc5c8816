#include "PrintedPdf.h"

#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

constexpr double pointsPerInch = 72;

} // namespace

PrintedPdf::PrintedPdf(const QString &path)
    : m_path(path)
{}

QByteArray PrintedPdf::ask(const char *program, QStringList arguments) const
{
    QProcess reader;
    const bool printsText = qstrcmp(program, "pdftotext") == 0;
    reader.start(QString::fromLatin1(program),
                 arguments << m_path << (printsText ? QStringList(QStringLiteral("-")) : QStringList()));
    if (!reader.waitForFinished() || reader.exitCode() != 0)
        ADD_FAILURE() << program << ": " << reader.readAllStandardError().constData();
    return reader.readAllStandardOutput();
}

QStringList PrintedPdf::pages() const
{
    QStringList pages = QString::fromUtf8(ask("pdftotext", {QStringLiteral("-layout")})).split(QChar(u'\f'));
    pages.removeLast();
    return pages;
}

QRectF PrintedPdf::placeOf(const QString &word, int page) const
{
    QStringList arguments{QStringLiteral("-bbox")};
    if (page > 0)
        arguments << QStringLiteral("-f") << QString::number(page) << QStringLiteral("-l")
                  << QString::number(page);
    const QRegularExpression place(
        QStringLiteral("xMin=\"(.*)\" yMin=\"(.*)\" xMax=\"(.*)\" yMax=\"(.*)\">%1<")
            .arg(QRegularExpression::escape(word)));
    const auto match = place.match(QString::fromUtf8(ask("pdftotext", arguments)));
    const auto at = [&](int number) { return match.captured(number).toDouble(); };
    return {QPointF(at(1), at(2)), QPointF(at(3), at(4))};
}

QString PrintedPdf::info(const char *name) const
{
    const QRegularExpression line(QStringLiteral("^%1: *(.*)$").arg(QLatin1String(name)),
                                  QRegularExpression::MultilineOption);
    return line.match(QString::fromUtf8(ask("pdfinfo", {}))).captured(1);
}

QSizeF PrintedPdf::paper() const
{
    const QStringList words = info("Page size").split(u' '); // "595 x 842 pts (A4)"
    return {words.value(0).toDouble(), words.value(2).toDouble()};
}

QString PrintedPdf::title() const
{
    return info("Title");
}

QStringList PrintedPdf::fonts() const
{
    QStringList names;
    for (const QString &line : QString::fromUtf8(ask("pdffonts", {})).split(u'\n').mid(2))
        names << line.section(u' ', 0, 0);
    return names;
}

QList<QSize> PrintedPdf::pictureSizes() const
{
    QList<QSize> sizes;
    for (const QString &line :
         QString::fromUtf8(ask("pdfimages", {QStringLiteral("-list")})).split(u'\n').mid(2)) {
        const QStringList columns = line.simplified().split(u' ');
        if (columns.size() < 14)
            continue;
        const auto number = [&](int column) { return columns.at(column).toDouble(); };
        sizes << QSize(qRound(number(3) / number(12) * pointsPerInch),
                       qRound(number(4) / number(13) * pointsPerInch));
    }
    return sizes;
}

QImage PrintedPdf::picture(int page) const
{
    QProcess painter;
    const QString number = QString::number(page);
    painter.start(QStringLiteral("pdftoppm"),
                  {QStringLiteral("-r"), QStringLiteral("288"), QStringLiteral("-f"), number,
                   QStringLiteral("-l"), number, m_path});
    painter.waitForFinished();
    return QImage::fromData(painter.readAllStandardOutput(), "PPM");
}

#include "ParagraphFormat.h"

#include "RichTextProperties.h"
#include "Twips.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

double pixels(int length)
{
    return Twips::toPixels(length, ParagraphFormat::layoutDpi());
}

/// The property, or what the pixels amount to where there is none, as in pasted HTML.
int twips(const QTextBlockFormat &format, int id, double shown)
{
    return format.hasProperty(id) ? format.intProperty(id) : ParagraphFormat::toTwips(shown);
}

void keep(QTextBlockFormat &format, int id, int value)
{
    if (value == 0)
        format.clearProperty(id);
    else
        format.setProperty(id, value);
}

} // namespace

double ParagraphFormat::layoutDpi()
{
    constexpr double withoutScreen = 96;
    static const double dpi = QGuiApplication::primaryScreen()
                                  ? QGuiApplication::primaryScreen()->logicalDotsPerInchX()
                                  : withoutScreen;
    return dpi;
}

int ParagraphFormat::toTwips(double pixels)
{
    return qRound(Twips::fromPixels(pixels, layoutDpi()));
}

int ParagraphFormat::leftIndent(const QTextBlockFormat &format)
{
    return twips(format, RichTextProperty::LeftIndent, format.leftMargin());
}

int ParagraphFormat::rightIndent(const QTextBlockFormat &format)
{
    return twips(format, RichTextProperty::RightIndent, format.rightMargin());
}

int ParagraphFormat::firstLineIndent(const QTextBlockFormat &format)
{
    return twips(format, RichTextProperty::FirstLineIndent, format.textIndent());
}

int ParagraphFormat::spaceBefore(const QTextBlockFormat &format)
{
    return twips(format, RichTextProperty::SpaceBefore, format.topMargin());
}

int ParagraphFormat::spaceAfter(const QTextBlockFormat &format)
{
    return twips(format, RichTextProperty::SpaceAfter, format.bottomMargin());
}

void ParagraphFormat::setIndents(QTextBlockFormat &format, int left, int right, int firstLine)
{
    keep(format, RichTextProperty::LeftIndent, left);
    keep(format, RichTextProperty::RightIndent, right);
    keep(format, RichTextProperty::FirstLineIndent, firstLine);
    // All that is given, also 0: without a property the pixels count.
    const bool inList = format.objectIndex() != -1;
    format.setLeftMargin(pixels(left));
    format.setRightMargin(pixels(right));
    format.setTextIndent(inList ? 0 : pixels(firstLine));
}

void ParagraphFormat::setSpacing(QTextBlockFormat &format, int before, int after)
{
    keep(format, RichTextProperty::SpaceBefore, before);
    keep(format, RichTextProperty::SpaceAfter, after);
    format.setTopMargin(pixels(before));
    format.setBottomMargin(pixels(after));
}

void ParagraphFormat::setLineSpacing(QTextBlockFormat &format, int spacing, bool isMultiple)
{
    constexpr int single = 240;
    keep(format, RichTextProperty::LineSpacing, spacing);
    if (isMultiple && spacing != 0)
        format.setProperty(RichTextProperty::LineSpacingIsMultiple, true);
    else
        format.clearProperty(RichTextProperty::LineSpacingIsMultiple);
    if (spacing == 0)
        format.setLineHeight(0, QTextBlockFormat::SingleHeight);
    else if (isMultiple)
        format.setLineHeight(100.0 * spacing / single, QTextBlockFormat::ProportionalHeight);
    else if (spacing < 0)
        format.setLineHeight(pixels(-spacing), QTextBlockFormat::FixedHeight);
    else
        format.setLineHeight(pixels(spacing), QTextBlockFormat::MinimumHeight);
}

#include "PageSetup.h"

#include "PageFormat.h"

#include <QTextDocument>
#include <QTextFrame>

using namespace PageFormat;

namespace {

QTextListFormat::Style numbersOf(const QTextFrameFormat &format)
{
    if (value(format, UpperRoman))
        return QTextListFormat::ListUpperRoman;
    if (value(format, LowerRoman))
        return QTextListFormat::ListLowerRoman;
    if (value(format, UpperLetters))
        return QTextListFormat::ListUpperAlpha;
    if (value(format, LowerLetters))
        return QTextListFormat::ListLowerAlpha;
    return QTextListFormat::ListDecimal;
}

} // namespace

PageSetup PageSetup::of(const QTextDocument &document)
{
    const QTextFrameFormat format = document.rootFrame()->frameFormat();
    const auto first = [&](Word section, Word whole) {
        const std::optional<int> said = value(format, section);
        return said ? said : value(format, whole);
    };
    PageSetup setup;
    setup.width = first(SectionWidth, PaperWidth);
    setup.height = first(SectionHeight, PaperHeight);
    setup.left = first(SectionLeft, MarginLeft);
    setup.right = first(SectionRight, MarginRight);
    setup.top = first(SectionTop, MarginTop);
    setup.bottom = first(SectionBottom, MarginBottom);
    if (setup.left)
        *setup.left += first(SectionGutter, Gutter).value_or(0);
    setup.headerDistance = value(format, HeaderDistance).value_or(usualDistance);
    setup.footerDistance = value(format, FooterDistance).value_or(usualDistance);
    setup.isLandscape = first(SectionLandscape, Landscape).has_value();
    setup.isMirrored = first(SectionMirrored, MirroredMargins).has_value();
    setup.hasTitlePage = value(format, TitlePage).has_value();
    setup.hasFacingPages = value(format, FacingPages).has_value();
    setup.firstNumber = value(format, RestartsNumbers) ? first(SectionNumber, FirstNumber).value_or(1)
                                                       : value(format, FirstNumber).value_or(1);
    setup.numbers = numbersOf(format);
    return setup;
}

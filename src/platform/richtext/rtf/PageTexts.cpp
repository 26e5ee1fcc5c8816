#include "PageTexts.h"

#include "PageSections.h"
#include "RichTextProperties.h"

#include <QTextDocument>
#include <QTextFrame>
#include <array>

namespace {

bool hasAny(const QTextFrameFormat &format)
{
    for (int kind = 0; kind < PageTexts::KindCount; ++kind) {
        if (format.hasProperty(int(RichTextProperty::PageText) + kind))
            return true;
    }
    return false;
}

} // namespace

const char *PageTexts::word(Kind kind)
{
    constexpr std::array<const char *, KindCount> words = {"header", "headerl", "headerr", "headerf",
                                                           "footer", "footerl", "footerr", "footerf"};
    return words[size_t(kind)];
}

std::optional<PageTexts::Kind> PageTexts::find(QByteArrayView word)
{
    for (int kind = 0; kind < KindCount; ++kind) {
        if (word == QByteArrayView(PageTexts::word(Kind(kind))))
            return Kind(kind);
    }
    return {};
}

void PageTexts::keep(QTextFrameFormat &format, Kind kind, std::shared_ptr<const QTextDocument> text)
{
    format.setProperty(int(RichTextProperty::PageText) + kind, QVariant::fromValue(std::move(text)));
}

std::shared_ptr<const QTextDocument> PageTexts::text(const QTextFrameFormat &format, Kind kind)
{
    return format.property(int(RichTextProperty::PageText) + kind)
        .value<std::shared_ptr<const QTextDocument>>();
}

std::shared_ptr<const QTextDocument> PageTexts::text(const QTextDocument &document, Kind kind)
{
    const QTextFrameFormat first = document.rootFrame()->frameFormat();
    if (hasAny(first))
        return text(first, kind);
    for (const QTextFormat &format : document.allFormats()) {
        const PageSections::Section section = PageSections::of(format);
        if (section && hasAny(*section))
            return text(*section, kind);
    }
    return {};
}

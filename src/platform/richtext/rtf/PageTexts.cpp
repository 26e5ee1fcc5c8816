#include "PageTexts.h"

#include "RichTextProperties.h"

#include <QTextDocument>
#include <QTextFrame>
#include <array>

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

std::shared_ptr<const QTextDocument> PageTexts::text(const QTextDocument &document, Kind kind)
{
    return document.rootFrame()
        ->frameFormat()
        .property(int(RichTextProperty::PageText) + kind)
        .value<std::shared_ptr<const QTextDocument>>();
}

#include "RtfPages.h"

#include "PageFormat.h"
#include "RichTextProperties.h"
#include "RtfDocumentFiller.h"
#include "RtfLexer.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QUrl>

RtfPages::RtfPages(QTextDocument &document, const RtfFormats &formats, const RtfColorTable &colors,
                   const RtfLists &lists)
    : m_document(document)
    , m_formats(formats)
    , m_colors(colors)
    , m_lists(lists)
{}

void RtfPages::apply(const RtfToken &token)
{
    const std::optional<PageFormat::Word> word = PageFormat::find(RtfKeywords::spelling(token.word));
    const std::optional<int> value = token.hasParameter ? std::optional(token.parameter) : std::nullopt;
    if (word)
        PageFormat::set(section(), *word, value);
}

void RtfPages::beginSection()
{
    PageFormat::clearSection(section());
}

PageSections::Section RtfPages::endSection()
{
    m_section = std::make_shared<QTextFrameFormat>();
    return m_section;
}

std::optional<PageTexts::Kind> RtfPages::kind(const RtfToken &token)
{
    return PageTexts::find(RtfKeywords::spelling(token.word));
}

void RtfPages::keep(PageTexts::Kind kind, const RtfFlow &flow)
{
    const auto text = std::make_shared<QTextDocument>();
    text->setUndoRedoEnabled(false);
    text->setDefaultFont(m_document.defaultFont());
    RtfDocumentFiller(*text, m_formats, m_colors, m_lists).append(flow);
    takePictures(*text);
    PageTexts::keep(section(), kind, text);
}

void RtfPages::setFontWords(const QVariantMap &words)
{
    if (!words.isEmpty())
        m_format.setProperty(RichTextProperty::FontWords, words);
}

void RtfPages::setStyles(TextStyles::Sheet sheet)
{
    if (!sheet->isEmpty())
        TextStyles::keep(m_format, std::move(sheet));
}

void RtfPages::addInformation(const QByteArray &group)
{
    const QByteArray before = m_format.property(RichTextProperty::Information).toByteArray();
    m_format.setProperty(RichTextProperty::Information, before + group + '\n');
}

/// They were read into the document itself.
void RtfPages::takePictures(QTextDocument &text) const
{
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QUrl name(it.fragment().charFormat().toImageFormat().name());
            if (it.fragment().charFormat().isImageFormat())
                text.addResource(QTextDocument::ImageResource, name,
                                 m_document.resource(QTextDocument::ImageResource, name));
        }
    }
}

void RtfPages::finish()
{
    if (m_format.propertyCount() > 0) {
        QTextFrameFormat format = m_document.rootFrame()->frameFormat();
        format.merge(m_format);
        m_document.rootFrame()->setFrameFormat(format);
    }
    PageFormat::spaceTabs(m_document);
}

#include "RtfPages.h"

#include "PageFormat.h"
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
    if (word && m_section == 0)
        PageFormat::set(m_format, *word, value);
}

void RtfPages::beginSection()
{
    if (m_section == 0)
        PageFormat::clearSection(m_format);
}

/// Columns that only some of the text has would be wrong for all of it.
void RtfPages::endSection()
{
    ++m_section;
    for (const PageFormat::Word word : {PageFormat::Columns, PageFormat::ColumnGap, PageFormat::ColumnLine})
        PageFormat::clear(m_format, word);
}

std::optional<PageTexts::Kind> RtfPages::kind(const RtfToken &token) const
{
    if (m_sectionOfTexts >= 0 && m_sectionOfTexts != m_section)
        return {};
    return PageTexts::find(RtfKeywords::spelling(token.word));
}

void RtfPages::keep(PageTexts::Kind kind, const RtfFlow &flow)
{
    m_sectionOfTexts = m_section;
    const auto text = std::make_shared<QTextDocument>();
    text->setUndoRedoEnabled(false);
    text->setDefaultFont(m_document.defaultFont());
    RtfDocumentFiller(*text, m_formats, m_colors, m_lists).append(flow);
    takePictures(*text);
    PageTexts::keep(m_format, kind, text);
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

#pragma once

#include "PageSections.h"
#include "PageTexts.h"
#include "TextStyles.h"

#include <QTextFrameFormat>
#include <optional>

class QTextDocument;
class RtfColorTable;
class RtfFormats;
class RtfLists;
struct RtfFlow;
struct RtfToken;

/// What the file says about pages: the words, headers and footers of its sections, and who wrote it.
class RtfPages
{
public:
    RtfPages(QTextDocument &document, const RtfFormats &formats, const RtfColorTable &colors,
             const RtfLists &lists);

    void apply(const RtfToken &token);
    /// A section has its words from here on.
    void beginSection();
    /// The section that begins then; its content is added while it is read.
    PageSections::Section endSection();

    /// The kind of page text that the group of \a token holds.
    static std::optional<PageTexts::Kind> kind(const RtfToken &token);
    void keep(PageTexts::Kind kind, const RtfFlow &flow);

    /// As RichTextProperty::FontWords.
    void setFontWords(const QVariantMap &words);
    void setStyles(TextStyles::Sheet sheet);
    void addInformation(const QByteArray &group);

    /// Gives all that to the document.
    void finish();

private:
    QTextFrameFormat &section() { return m_section ? *m_section : m_format; }
    void takePictures(QTextDocument &text) const;

    QTextDocument &m_document;
    const RtfFormats &m_formats;
    const RtfColorTable &m_colors;
    const RtfLists &m_lists;
    QTextFrameFormat m_format;                   ///< with the first section
    std::shared_ptr<QTextFrameFormat> m_section; ///< the one that is being read; null in the first one
};

#pragma once

#include "PageTexts.h"

#include <QTextFrameFormat>
#include <optional>

class QTextDocument;
class RtfColorTable;
class RtfFormats;
class RtfLists;
struct RtfFlow;
struct RtfToken;

/// What the file says about pages: the words of its first section, and the headers and footers of the first
/// section that has any.
class RtfPages
{
public:
    RtfPages(QTextDocument &document, const RtfFormats &formats, const RtfColorTable &colors,
             const RtfLists &lists);

    void apply(const RtfToken &token);
    /// A section has its words from here on.
    void beginSection();
    void endSection();

    /// The kind of page text that the group of \a token holds, if it is to be read.
    std::optional<PageTexts::Kind> kind(const RtfToken &token) const;
    void keep(PageTexts::Kind kind, const RtfFlow &flow);

    /// Gives all that to the document.
    void finish();

private:
    void takePictures(QTextDocument &text) const;

    QTextDocument &m_document;
    const RtfFormats &m_formats;
    const RtfColorTable &m_colors;
    const RtfLists &m_lists;
    QTextFrameFormat m_format;
    int m_section = 0;
    int m_sectionOfTexts = -1;
};

#pragma once

#include <QTextFrameFormat>
#include <memory>

class QTextBlockFormat;

/// The sections behind the first one. Each is kept in the format of the paragraph that begins it: its words
/// and its page texts, in the same properties that the root frame has for the first section.
namespace PageSections {

using Section = std::shared_ptr<const QTextFrameFormat>;

void begin(QTextBlockFormat &format, Section section);

/// The section that begins with a paragraph of \a format; null where none does.
Section of(const QTextFormat &format);

/// Whether it begins on a page of its own.
bool breaksPage(const QTextFrameFormat &section);

} // namespace PageSections

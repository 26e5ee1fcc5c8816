#include "PageSections.h"

#include "PageFormat.h"
#include "RichTextProperties.h"

#include <QTextBlockFormat>
#include <QVariant>

void PageSections::begin(QTextBlockFormat &format, Section section)
{
    format.setProperty(RichTextProperty::Section, QVariant::fromValue(std::move(section)));
    // Formats are looked up by a hash that takes all shared content for the same.
    static int number = 0;
    format.setProperty(RichTextProperty::SectionNumber, ++number);
}

PageSections::Section PageSections::of(const QTextFormat &format)
{
    if (!format.hasProperty(RichTextProperty::Section))
        return {};
    return format.property(RichTextProperty::Section).value<Section>();
}

bool PageSections::breaksPage(const QTextFrameFormat &section)
{
    return !PageFormat::value(section, PageFormat::BreakNone) &&
           !PageFormat::value(section, PageFormat::BreakColumn);
}

#include "TextStyles.h"

#include "RichTextProperties.h"

#include <QTextDocument>
#include <QTextFrame>
#include <QVariant>

void TextStyles::keep(QTextFrameFormat &root, Sheet sheet)
{
    root.setProperty(RichTextProperty::Styles, QVariant::fromValue(std::move(sheet)));
}

TextStyles::Sheet TextStyles::of(const QTextDocument &document)
{
    return document.rootFrame()->frameFormat().property(RichTextProperty::Styles).value<Sheet>();
}

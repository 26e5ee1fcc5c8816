#include "TextPieces.h"

#include <QTextBlock>
#include <QTextDocument>

bool TextPieces::any(const QTextDocument &document, int from, int length,
                     const std::function<bool(QStringView)> &isWanted)
{
    QTextBlock block = document.findBlock(from);
    for (; block.isValid() && block.position() < from + length; block = block.next())
        if (isWanted(block.text() + QChar::ParagraphSeparator))
            return true;
    return false;
}

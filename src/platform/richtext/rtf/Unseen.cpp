#include "Unseen.h"

#include "RichTextProperties.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QVariant>
#include <algorithm>

void Unseen::set(QTextCharFormat &format, const Pieces &pieces)
{
    format.setProperty(RichTextProperty::Unseen, QVariant::fromValue(pieces));
    // Formats are looked up by a hash that takes all such content for the same.
    static int number = 0;
    format.setProperty(RichTextProperty::UnseenNumber, ++number);
}

Unseen::Pieces Unseen::of(const QTextFormat &format)
{
    return format.property(RichTextProperty::Unseen).value<Pieces>();
}

bool Unseen::isIn(const QTextFormat &format)
{
    return format.hasProperty(RichTextProperty::Unseen);
}

QHash<const Unseen::Piece *, int> Unseen::places(const QTextDocument &document)
{
    QHash<const Piece *, int> inRuns;
    QHash<const Piece *, int> atEnds;
    const QList<QTextFormat> formats = document.allFormats();
    if (std::none_of(formats.cbegin(), formats.cend(), isIn))
        return {};
    int position = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const int next = position + block.length();
        for (auto it = block.begin(); !it.atEnd(); position += it.fragment().length(), ++it) {
            for (const auto &piece : of(it.fragment().charFormat())) {
                if (!inRuns.contains(piece.get()))
                    inRuns.insert(piece.get(), position);
            }
        }
        for (const auto &piece : of(block.charFormat()))
            atEnds.insert(piece.get(), position);
        position = next;
    }
    atEnds.insert(inRuns);
    return atEnds;
}

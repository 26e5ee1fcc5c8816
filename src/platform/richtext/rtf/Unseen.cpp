#include "Unseen.h"

#include "RichTextProperties.h"

#include <QVariant>
#include <memory>

using KeptPieces = std::shared_ptr<const Unseen::Pieces>;

void Unseen::add(QTextCharFormat &format, Pieces pieces)
{
    if (const Pieces *before = of(format))
        pieces = *before + pieces;
    format.setProperty(RichTextProperty::Unseen,
                       QVariant::fromValue(KeptPieces(new Pieces(std::move(pieces)))));
    // Formats are looked up by a hash that takes all shared content for the same.
    static int number = 0;
    format.setProperty(RichTextProperty::UnseenNumber, ++number);
}

const Unseen::Pieces *Unseen::of(const QTextFormat &format)
{
    if (!format.hasProperty(RichTextProperty::Unseen))
        return nullptr;
    return format.property(RichTextProperty::Unseen).value<KeptPieces>().get();
}

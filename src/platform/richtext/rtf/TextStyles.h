#pragma once

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QString>
#include <memory>
#include <optional>

class QTextDocument;
class QTextFrameFormat;

/// A style as the file of a document defines it. Fonts and colours are named: their numbers are others in
/// each file.
struct TextStyle
{
    struct Word
    {
        QByteArray spelling;
        std::optional<int> number; ///< none where a font or a colour has one
        std::optional<QString> family;
        std::optional<QColor> colour; ///< invalid is the automatic one
    };

    enum class Kind { Paragraph, Character };

    Kind kind = Kind::Paragraph;
    int number = 0; ///< different for each of a kind; other styles name it
    QString name;
    QList<Word> words;
};

/// The styles of a document, for the programs that open it next: paragraphs say all of their look themselves
/// and name their style beside it (RichTextProperty::Style). No undo step knows of them, and clones of the
/// document have them too.
namespace TextStyles {

using Sheet = std::shared_ptr<const QList<TextStyle>>;

void keep(QTextFrameFormat &root, Sheet sheet);
/// Null where the document has no styles.
Sheet of(const QTextDocument &document);

} // namespace TextStyles

#include "SameDocument.h"

#include "RichTextFile.h"
#include "RichTextProperties.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

namespace {

QTextCharFormat withoutName(QTextCharFormat format)
{
    format.clearProperty(QTextFormat::ImageName);
    format.clearProperty(RichTextProperty::Unseen);
    format.clearProperty(RichTextProperty::UnseenNumber);
    return format;
}

/// Without the list, and without left alignment where that is the default.
QTextBlockFormat plainly(QTextBlockFormat format)
{
    format.setObjectIndex(-1);
    format.clearProperty(RichTextProperty::Section);
    format.clearProperty(RichTextProperty::SectionNumber);
    if (format.layoutDirection() != Qt::RightToLeft && format.alignment().testFlag(Qt::AlignLeft))
        format.clearProperty(QTextFormat::BlockAlignment);
    return format;
}

QString listOf(const QTextBlock &block)
{
    const QTextList *list = block.textList();
    if (!list)
        return QStringLiteral("none");
    const QTextListFormat format = list->format();
    QStringList parts = {list->itemText(block)};
    const QMap<int, QVariant> properties = format.properties();
    for (auto property = properties.cbegin(); property != properties.cend(); ++property)
        parts.append(QStringLiteral("%1=%2").arg(property.key()).arg(property.value().toString()));
    return parts.join(u' ');
}

QString tableOf(const QTextBlock &block)
{
    const QTextTable *table = QTextCursor(block).currentTable();
    if (!table)
        return QStringLiteral("none");
    const QTextTableCell cell = table->cellAt(block.position());
    QTextCharFormat format = cell.format();
    return QStringLiteral("%1x%2 at %3,%4 over %5,%6 colour %7 edges %8 border %9")
        .arg(table->rows())
        .arg(table->columns())
        .arg(cell.row())
        .arg(cell.column())
        .arg(cell.rowSpan())
        .arg(cell.columnSpan())
        .arg(format.background().color().name())
        .arg(table->format().property(RichTextProperty::RowTwips).toString())
        .arg(table->format().border());
}

QString describe(const char *what, int position, const QVariant &one, const QVariant &other)
{
    return QStringLiteral("%1 at %2: '%3' and '%4'")
        .arg(QLatin1String(what))
        .arg(position)
        .arg(one.toString(), other.toString());
}

QString properties(const QTextFormat &format)
{
    QStringList parts;
    const QMap<int, QVariant> all = format.properties();
    for (auto property = all.cbegin(); property != all.cend(); ++property)
        parts.append(QStringLiteral("%1=%2").arg(property.key(), 0, 16).arg(property.value().toString()));
    return parts.join(u' ');
}

QString blockDifference(const QTextBlock &one, const QTextBlock &other)
{
    if (plainly(one.blockFormat()) != plainly(other.blockFormat()))
        return describe("paragraph", one.position(), properties(one.blockFormat()),
                        properties(other.blockFormat()));
    if (listOf(one) != listOf(other))
        return describe("list", one.position(), listOf(one), listOf(other));
    if (tableOf(one) != tableOf(other))
        return describe("table", one.position(), tableOf(one), tableOf(other));
    return {};
}

} // namespace

QString firstDifference(const QTextDocument &one, const QTextDocument &other)
{
    const QString text = RichTextFile::text(one);
    if (text != RichTextFile::text(other))
        return describe("text", 0, text, RichTextFile::text(other));
    for (QTextBlock a = one.begin(), b = other.begin(); a.isValid(); a = a.next(), b = b.next()) {
        const QString difference = blockDifference(a, b);
        if (!difference.isEmpty())
            return difference;
    }
    QTextCursor a(one.firstBlock());
    QTextCursor b(other.firstBlock());
    while (a.movePosition(QTextCursor::NextCharacter) && b.movePosition(QTextCursor::NextCharacter)) {
        if (a.atBlockStart())
            continue; // the format of a paragraph's end
        if (withoutName(a.charFormat()) != withoutName(b.charFormat()))
            return describe("character", a.position(), properties(a.charFormat()),
                            properties(b.charFormat()));
    }
    return {};
}

#include "SmallCapitals.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr double sizeOfSmall = 0.7; // as Qt has it

QList<QTextCursor> runsOf(QTextDocument &document)
{
    QList<QTextCursor> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().fontCapitalization() != QFont::SmallCaps)
                continue;
            QTextCursor run(block);
            run.setPosition(it.fragment().position());
            run.setPosition(it.fragment().position() + it.fragment().length(), QTextCursor::KeepAnchor);
            runs.append(run);
        }
    }
    return runs;
}

/// The end of the stretch from \a first that is small letters throughout, or none at all.
qsizetype stretchEnd(const QString &text, qsizetype first)
{
    const bool isSmall = text.at(first).isLower();
    qsizetype end = first + 1;
    while (end < text.size() && text.at(end).isLower() == isSmall)
        ++end;
    return end;
}

void spellOut(const QTextCursor &run)
{
    const QString text = run.selectedText();
    QTextCursor part = run;
    for (qsizetype first = 0; first < text.size(); first = stretchEnd(text, first)) {
        part.setPosition(run.selectionStart() + int(first));
        part.setPosition(run.selectionStart() + int(stretchEnd(text, first)), QTextCursor::KeepAnchor);
        QTextCharFormat format = part.charFormat();
        format.setFontCapitalization(QFont::AllUppercase);
        if (text.at(first).isLower())
            format.setFontPointSize(format.font().pointSizeF() * sizeOfSmall);
        part.setCharFormat(format);
    }
}

} // namespace

void SmallCapitals::spellOut(QTextDocument &document)
{
    for (const QTextCursor &run : runsOf(document))
        ::spellOut(run);
}

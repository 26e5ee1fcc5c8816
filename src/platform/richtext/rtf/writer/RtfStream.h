#pragma once

#include <QByteArray>
#include <QString>

/// Rich text being written, with the state that a reader of it has reached, so that nothing is said twice.
///
/// States of characters and paragraphs are numbers; equal numbers are written alike, 0 is the plain state.
/// Runs of characters are groups: resetting them by a word is misread by programs that look at it too late.
class RtfStream
{
public:
    /// Makes room at once for about \a size bytes.
    void reserve(qsizetype size) { m_out.reserve(size); }

    /// The character words from here to the end of the paragraph, as changes from plain text.
    void setCharacters(int number, const QByteArray &words);

    /// The paragraph words from here on, as changes from a paragraph without properties, inside \a depth
    /// tables.
    void setParagraph(int number, const QByteArray &words, int depth);

    /// The next paragraph says all of its words: some readers take those in a group for the text's own.
    void forgetParagraph() { m_paragraph = -1; }

    void text(QStringView text);

    /// A whole group, braces included; it leaves the state as it was.
    void group(const QByteArray &group);

    /// Control words that end a paragraph, a cell or a row, or start a row, and a new line behind them. The
    /// end has the characters' format, which then ends too.
    void line(const QByteArray &words);

    /// Text between the two is the result of the field that \a instruction, as it is written, asks for.
    void startField(const QByteArray &instruction);
    void endField();

    /// What was written; the stream is then done.
    QByteArray take() { return std::move(m_out); }

private:
    void words(const QByteArray &words);
    void endRun();

    QByteArray m_out;
    bool m_wordIsOpen = false; ///< the last control word would swallow a letter or blank behind it
    int m_characters = 0;
    int m_paragraph = 0;
    int m_depth = 0;
};

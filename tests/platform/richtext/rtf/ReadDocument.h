#pragma once

#include <QTextBlock>
#include <QTextDocument>
#include <ostream>
#include <string>

/// A document read from rich text, for the reader's tests.
class ReadDocument
{
public:
    explicit ReadDocument(const QByteArray &rtf);

    QTextDocument &document() { return m_document; }

    /// Paragraphs joined by "|", forced lines by "/", tables' ends of cells by "|" too.
    std::string text() const;

    QTextBlock paragraph(int number) const { return m_document.findBlockByNumber(number); }

    /// The format of the run that begins with or holds \a text.
    QTextCharFormat formatOf(const QString &text) const;

private:
    QTextDocument m_document;
};

/// \a body inside the frame of a small document: two fonts, colours (1 red, 2 blue), and the group around it.
QByteArray framed(const QByteArray &body);

/// The text of \a rtf as ReadDocument::text().
std::string textOf(const QByteArray &rtf);

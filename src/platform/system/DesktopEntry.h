#pragma once

#include <QMap>
#include <QStringList>

/// The "Desktop Entry" group of a desktop file, and the two kinds of text that such files are made of.
class DesktopEntry
{
public:
    /// An entry without keys when \a bytes hold none.
    static DesktopEntry parse(const QByteArray &bytes);

    /// The text of \a key, not translated; empty when it is not there.
    QString text(const QString &key) const { return m_texts.value(key); }
    bool isTrue(const QString &key) const { return text(key) == QLatin1String("true"); }
    /// The program and its arguments, without the places for files. Empty when there is no Exec key or it
    /// cannot be understood.
    QStringList command() const;

    /// \a text as it is written behind "=".
    static QString escaped(const QString &text);
    /// \a argument as one word of an Exec key, taken literally. Quoted only where it has to be: not every
    /// desktop understands a program in quotes.
    static QString execWord(const QString &argument);

private:
    QString withoutFieldCodes(const QString &word) const;

    QMap<QString, QString> m_texts;
};

#pragma once

#include <QByteArray>
#include <QRect>
#include <QtEndian>
#include <initializer_list>

/// A metafile that a test puts together.
class Metafile
{
public:
    /// Appends a command with its words.
    Metafile &add(int function, std::initializer_list<int> words = {}, const QByteArray &rest = {})
    {
        QByteArray content;
        for (const int word : words)
            append<quint16>(content, quint16(word));
        content += rest;
        if (content.size() % 2)
            content += '\0';
        append<quint32>(m_commands, quint32(3 + content.size() / 2));
        append<quint16>(m_commands, quint16(function));
        m_commands += content;
        return *this;
    }
    /// Appends the bytes as they are.
    Metafile &addRaw(const QByteArray &bytes)
    {
        m_commands += bytes;
        return *this;
    }
    Metafile &fillWith(int red, int green, int blue) { return add(0x02FC, {0, red | green << 8, blue, 0}); }
    Metafile &withoutPen() { return add(0x02FA, {5, 0, 0, 0, 0}); }
    Metafile &select(int object) { return add(0x012D, {object}); }
    Metafile &rectangle(const QRect &box)
    {
        return add(0x041B, {box.y() + box.height(), box.x() + box.width(), box.y(), box.x()});
    }
    Metafile &end() { return add(0); }

    /// Placed at \a bounds, in units of which so many are an inch.
    QByteArray placed(const QRect &bounds, int unitsPerInch = 96) const
    {
        QByteArray bytes("\xD7\xCD\xC6\x9A\0\0", 6);
        for (const int word : {bounds.x(), bounds.y(), bounds.x() + bounds.width(),
                               bounds.y() + bounds.height(), unitsPerInch, 0, 0, 0})
            append<quint16>(bytes, quint16(word));
        return bytes + plain();
    }
    QByteArray plain() const
    {
        return QByteArray("\x01\0\x09\0\0\x03\0\0\0\0\x10\0\0\0\0\0\0\0", 18) + m_commands;
    }

private:
    template<class Number>
    static void append(QByteArray &bytes, Number number)
    {
        char buffer[sizeof number];
        qToLittleEndian(number, buffer);
        bytes.append(buffer, sizeof buffer);
    }

    QByteArray m_commands;
};

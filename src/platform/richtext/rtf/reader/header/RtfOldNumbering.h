#pragma once

#include "RtfListLevel.h"
#include "RtfPart.h"

#include <QList>

/// The older form of lists, where paragraphs say by themselves how they are marked. Equal marks
/// that follow each other have one number.
class RtfOldNumbering : public RtfPart
{
public:
    /// The mark numbered \a number, 1 and up.
    const RtfListLevel &mark(int number) const { return m_marks.at(number - 1); }

    void begin();
    /// The number of the mark that was read, 0 when it marks nothing.
    int end();
    /// The number of a bullet that the file does not describe.
    int bullet();
    void open() override { ++m_depth; }
    void close() override;
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;
    void character(char16_t c) override;

private:
    QList<RtfListLevel> m_marks;

    // The mark that is being read
    int m_depth = 0;
    int m_textDepth = -1;
    bool m_isMarked = false;
    RtfListLevel m_mark;
    QString m_before;
    QString m_behind;
    QString *m_text = nullptr; ///< one of the two
};

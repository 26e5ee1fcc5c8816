#pragma once

#include "RtfListLevel.h"
#include "RtfPart.h"

#include <QHash>
#include <QList>

/// The lists that a document defines, by their id.
class RtfListTable : public RtfPart
{
public:
    const QList<RtfListLevel> &levels(int listId) const;

    void begin();
    void open() override { ++m_depth; }
    void close() override;
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;
    void character(char16_t c) override;

private:
    void levelWord(RtfListLevel &level, const RtfToken &token);
    void beginList();

    QHash<int, QList<RtfListLevel>> m_lists;

    // The list that is being read
    int m_depth = 0;
    int m_textDepth = -1;  ///< of the group with a level's text
    int m_textLength = -1; ///< that the text itself names first
    int m_id = 0;
    QList<RtfListLevel> m_levels;
};

#pragma once

#include "RtfListTable.h"

/// The numbers (\ls) by which paragraphs name lists, and where a number starts its list anew.
class RtfListOverrides : public RtfPart
{
public:
    explicit RtfListOverrides(const RtfListTable &lists);

    /// How items of \a level in the list \a number look; nothing when the file does not say.
    const RtfListLevel *level(int number, int level);

    /// Whether marks of the list \a number have numbers of several levels.
    bool isOutline(int number);

    void begin();
    void open() override { ++m_depth; }
    void close() override;
    void word(const RtfToken &token) override;

private:
    struct Override
    {
        int listId = 0;
        QHash<int, int> starts;     ///< by level
        QList<RtfListLevel> levels; ///< filled when first asked for
    };

    void fill(Override &override) const;

    const RtfListTable &m_lists;
    QHash<int, Override> m_overrides;

    // The override that is being read
    int m_depth = 0;
    int m_number = 0;
    int m_level = -1;
    Override m_override;
};

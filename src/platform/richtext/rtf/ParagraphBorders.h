#pragma once

#include <QColor>
#include <QString>
#include <array>

/// One of the lines around a paragraph. Lengths in twips.
struct ParagraphBorder
{
    QString style; ///< its control word; empty where there is no line
    bool hasShadow = false;
    int width = -1; ///< -1 where it is not said
    int space = -1; ///< between the line and the text, the same
    QColor color;   ///< invalid for that of the text

    bool isShown() const { return !style.isEmpty(); }
};

/// All of them, and how RichTextProperty::Borders has them.
struct ParagraphBorders
{
    enum Side { Top, Left, Bottom, Right, Between, Bar, SideCount };

    /// Those of \a words, as words() has written them.
    static ParagraphBorders read(const QString &words);
    QString words() const;

    ParagraphBorder &operator[](int side) { return sides[size_t(side)]; }
    const ParagraphBorder &operator[](int side) const { return sides[size_t(side)]; }

    std::array<ParagraphBorder, SideCount> sides;
};

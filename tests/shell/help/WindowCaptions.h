#pragma once

#include <QSet>
#include <QStringList>

class QMenu;
class QWidget;

/// The texts by which a window's parts are known: captions, menu items, tabs, columns, choices and tool tips,
/// without their mnemonics.
class WindowCaptions
{
public:
    /// Those that \a window has now. Windows inside of it count, too.
    explicit WindowCaptions(const QWidget &window);

    /// \a name as the help writes it: a text, or the items of a menu path with " > " between them.
    bool has(const QString &name) const;

    void unite(const WindowCaptions &other);

private:
    void add(const QString &caption);
    void addTexts(const QWidget &part);
    void addChoices(const QWidget &part);
    void addMenu(const QString &path, const QMenu &menu);

    QSet<QString> m_captions;
};

#pragma once

#include "RunningSuite.h"

#include <functional>

class QAbstractButton;

/// A user who tries everything that the frame offers, with the mouse, and leaves every dialog by its
/// least harmful button. Errors that would end the program are recorded, and it continues.
class Walker
{
public:
    /// \a prepare opens what each step shall find open; all else is closed before.
    explicit Walker(std::function<void(RunningSuite &)> prepare);

    void chooseEveryMenuItem();
    /// Of the frame's toolbar.
    void pressEveryButton();
    /// Of the active window itself.
    void pressEveryButtonOfTheTool();

    /// What was tried, by name.
    const QStringList &steps() const { return m_steps; }
    /// The steps that would have ended the program by the default error box, with its number.
    const QStringList &errors() const { return m_errors; }
    /// The steps that would have ended the program in good order.
    const QStringList &ends() const { return m_ends; }

private:
    void startAfresh();
    void closeAll();
    void choose(const QList<QAction *> &path);
    void visit(const QList<QAction *> &items, const QStringList &path, QList<QStringList> &leaves) const;
    QList<QAction *> find(const QStringList &path) const;
    void press(QAbstractButton &button);
    void chooseFromList(const QMenu &list);
    void settle() const;

    RunningSuite m_suite;
    std::function<void(RunningSuite &)> m_prepare;
    QStringList m_steps;
    QStringList m_errors;
    QStringList m_ends;
};

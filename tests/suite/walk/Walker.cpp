#include "Walker.h"

#include "EventGate.h"
#include "Forms.h"
#include "Toolbar.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

void click(QWidget &widget, const QPoint &place)
{
    QTest::mouseMove(&widget, place);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
}

} // namespace

Walker::Walker(std::function<void(RunningSuite &)> prepare)
    : m_prepare(std::move(prepare))
{
    EventGate::setBox(
        [this](int number, const QString &) { m_errors << m_steps.last() + u' ' + QString::number(number); });
    EventGate::setEnd([this](int) {
        if (!EventGate::isBlocked())
            m_ends << m_steps.last();
    });
    m_suite.dialogs.leaveWhatComes();
}

void Walker::settle() const
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

void Walker::closeAll()
{
    const QList<Form *> forms = Forms::loaded();
    for (Form *form : forms)
        form->unload();
    settle();
}

void Walker::startAfresh()
{
    closeAll();
    for (const char *toggle : {"mnuViewToolbar", "mnuViewStatusBar"}) {
        if (!m_suite.item(toggle).isChecked())
            m_suite.choose(toggle);
    }
    m_prepare(m_suite);
    settle();
}

/// The visible items that open no submenu, each with the names of the menus above it.
void Walker::visit(const QList<QAction *> &items, const QStringList &path, QList<QStringList> &leaves) const
{
    for (const QAction *item : items) {
        if (!item->isVisible() || item->isSeparator() || !item->isEnabled())
            continue;
        const QStringList here = path + QStringList(item->objectName());
        if (item->menu())
            visit(item->menu()->actions(), here, leaves);
        else
            leaves << here;
    }
}

QList<QAction *> Walker::find(const QStringList &path) const
{
    QList<QAction *> found;
    QList<QAction *> items = m_suite.frame().menuBar()->actions();
    for (const QString &name : path) {
        for (QAction *item : std::as_const(items)) {
            if (item->objectName() == name)
                found << item;
        }
        if (found.last()->menu())
            items = found.last()->menu()->actions();
    }
    return found;
}

void Walker::choose(const QList<QAction *> &path)
{
    QMenuBar &bar = *m_suite.frame().menuBar();
    click(bar, bar.actionGeometry(path.first()).center());
    for (qsizetype i = 1; i < path.size(); ++i) {
        QMenu &menu = *path[i - 1]->menu();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu)) << qPrintable(m_steps.last());
        const QPoint place = menu.actionGeometry(path[i]).center();
        if (path[i]->menu()) {
            menu.setActiveAction(path[i]);
            QTest::keyClick(&menu, Qt::Key_Right);
        } else {
            click(menu, place);
        }
    }
    settle();
}

void Walker::chooseEveryMenuItem()
{
    startAfresh();
    QList<QStringList> leaves;
    visit(m_suite.frame().menuBar()->actions(), {}, leaves);
    for (const QStringList &path : std::as_const(leaves)) {
        startAfresh();
        m_steps << path.last();
        choose(find(path));
    }
}

void Walker::press(QAbstractButton &button)
{
    m_steps << button.objectName();
    const int inside = qMin(button.width(), button.height()) / 2; // the main part of a button with a list
    click(button, QPoint(inside, inside));
    settle();
}

void Walker::chooseFromList(const QMenu &list)
{
    for (QAction *entry : list.actions()) {
        if (entry->isSeparator())
            continue;
        startAfresh();
        m_steps << entry->objectName();
        entry->trigger();
        settle();
    }
}

void Walker::pressEveryButton()
{
    startAfresh();
    QStringList keys;
    for (const QToolButton *button : m_suite.frame().tbToolBar().findChildren<QToolButton *>()) {
        if (button->isVisible() && button->isEnabled() && button->defaultAction())
            keys << button->objectName();
    }
    for (const QString &key : std::as_const(keys)) {
        startAfresh();
        auto &button = *m_suite.frame().tbToolBar().findChild<QToolButton *>(key);
        press(button);
        if (button.menu())
            chooseFromList(*button.menu());
    }
}

void Walker::pressEveryButtonOfTheTool()
{
    startAfresh();
    QStringList names;
    for (const QAbstractButton *button : m_suite.active().findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled() &&
            !button->objectName().startsWith(QStringLiteral("qt_")))
            names << button->objectName();
    }
    for (const QString &name : std::as_const(names)) {
        startAfresh();
        press(*m_suite.active().findChild<QAbstractButton *>(name));
    }
}

#include "TabStrip.h"

#include "Named.h"
#include "RuntimeError.h"
#include "SideTabBar.h"

TabStrip::TabStrip(QWidget *parent, TabPlace place)
    : QTabWidget(parent)
{
    if (place == TabPlace::Above)
        return;
    setTabBar(new SideTabBar(this));
    setTabPosition(West);
}

QWidget *TabStrip::addPage(const QString &caption)
{
    auto *page = new QWidget;
    page->setAccessibleName(withoutMnemonic(caption).trimmed());
    addTab(page, caption);
    return page;
}

void TabStrip::setTab(int tab)
{
    setCurrentIndex(existing(tab));
}

QString TabStrip::TabCaption(int tab) const
{
    return tabText(existing(tab));
}

void TabStrip::setTabCaption(int tab, const QString &caption)
{
    setTabText(existing(tab), caption);
    widget(tab)->setAccessibleName(withoutMnemonic(caption).trimmed());
}

bool TabStrip::TabEnabled(int tab) const
{
    return isTabEnabled(existing(tab));
}

void TabStrip::setTabEnabled(int tab, bool enabled)
{
    QTabWidget::setTabEnabled(existing(tab), enabled);
}

bool TabStrip::TabVisible(int tab) const
{
    return isTabVisible(existing(tab));
}

void TabStrip::setTabVisible(int tab, bool visible)
{
    QTabWidget::setTabVisible(existing(tab), visible);
}

int TabStrip::existing(int tab) const
{
    if (tab < 0 || tab >= count())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    return tab;
}

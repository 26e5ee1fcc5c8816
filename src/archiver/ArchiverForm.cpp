#include "ArchiverForm.h"

#include "Named.h"
#include "StandardToolMenu.h"
#include "StatusBar.h"
#include "WindowIcons.h"

#include <QAction>
#include <QPushButton>
#include <QVBoxLayout>

ArchiverForm::ArchiverForm(const QString &name, const QSize &firstSize, const QStringList &jobCommands)
    : ChildForm(name)
    , m_job(*this, jobCommands)
    , m_firstSize(firstSize)
    , m_icons(new WindowIcons(*this))
{}

QSize ArchiverForm::sizeHint() const
{
    return ChildForm::sizeHint().expandedTo(m_firstSize);
}

void ArchiverForm::buildMenus(std::span<const ToolMenuRow> rows, const QStringList &marked)
{
    m_menus = StandardToolMenu::build(rows, *this);
    for (const QString &item : marked)
        member<QAction>(item).setCheckable(true);
}

QPushButton *ArchiverForm::button(const char *name, const QString &caption, const QString &icon)
{
    auto *button = named<QPushButton>(name, caption);
    m_icons->add(*button, icon);
    return button;
}

QVBoxLayout *ArchiverForm::layOut(std::span<const StatusBarRow> panels)
{
    sbrMain = named("sbrMain", new StatusBar(panels));
    sbrMain->setSizeGripEnabled(false);
    auto *content = new QWidget;
    auto *window = new QVBoxLayout(this);
    window->setContentsMargins({});
    window->setSpacing(0);
    window->addWidget(content, 1);
    window->addWidget(sbrMain);
    return new QVBoxLayout(content);
}

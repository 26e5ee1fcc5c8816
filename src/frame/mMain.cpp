#include "mMain.h"

#include "Forms.h"
#include "Globals.h"
#include "MainFrame.h"

#include <QDir>
#include <QSysInfo>

QString SystemDirectory()
{
    const QString folder = QStringLiteral("/usr/bin");
    return QDir(folder).exists() ? folder : QString();
}

QString GetThisComputerName()
{
    return QSysInfo::machineHostName();
}

void CloseFormByName(const QString &name)
{
    for (Form *form : Forms::named(name))
        form->unload();
}

void CascadeChildren()
{
    mainFrame->Arrange(0);
}

void TileChildrenHorizontal()
{
    mainFrame->Arrange(1);
}

void TileChildrenVertical()
{
    mainFrame->Arrange(2);
}

void ArrangeChildIcons()
{
    mainFrame->Arrange(3);
}

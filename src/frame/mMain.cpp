#include "mMain.h"

#include "Forms.h"
#include "Globals.h"
#include "MainFrame.h"

#include <QDir>
#include <QLineEdit>
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
    mainFrame->Arrange(MdiArea::Arrangement::Cascade);
}

void TileChildrenHorizontal()
{
    mainFrame->Arrange(MdiArea::Arrangement::TileHorizontal);
}

void TileChildrenVertical()
{
    mainFrame->Arrange(MdiArea::Arrangement::TileVertical);
}

void ArrangeChildIcons()
{
    mainFrame->Arrange(MdiArea::Arrangement::ArrangeIcons);
}

void AutoDial(const QString &PhoneNumber)
{
    diallerMode = QStringLiteral("Use");
    Form &dialler = Forms::refer(QStringLiteral("frmdialler"));
    dialler.showModeless(); // its load shows it; one that is open comes to the front
    dialler.setCaption(QStringLiteral("Quill-Dialler - AutoDial a Number"));
    dialler.member<QLineEdit>(QStringLiteral("txtPhoneNumber")).setText(PhoneNumber);
}

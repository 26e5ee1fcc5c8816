#include "frmAbout.h"

#include "Ask.h"
#include "Named.h"
#include "SystemInformation.h"
#include "Version.h"
#include "WindowCommands.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int aboutImageSize = 64;  // pixels
constexpr int disclaimerWidth = 52; // characters

const QString disclaimer = QStringLiteral(
    "Copyright \u00A9 2026 Tallowick. All rights reserved. This program comes without any warranty: whoever "
    "uses it does so at their own risk. The names of other products belong to their owners.");

} // namespace

frmAbout::frmAbout()
    : Form(QStringLiteral("frmAbout"))
    , lblDescription(named<QLabel>("lblDescription", QString()))
    , lblVersion(named<QLabel>("lblVersion", QString()))
    , lblDisclaimer(named<QLabel>("lblDisclaimer", QString()))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdSysInfo(named<QPushButton>("cmdSysInfo", QStringLiteral("&System Info...")))
{
    setCaption(QStringLiteral("About ") + Version::product);
    const QIcon icon(QStringLiteral(":/quill-office-tools.svg"));
    setWindowIcon(icon);
    auto *Image1 = named<QLabel>("Image1", QString(), QStringLiteral("Icon of the suite"));
    Image1->setPixmap(icon.pixmap(QSize(aboutImageSize, aboutImageSize), devicePixelRatio()));
    auto *upper = new QHBoxLayout;
    upper->addWidget(Image1, 0, Qt::AlignTop);
    upper->addLayout(buildTexts(), 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    auto *column = new QVBoxLayout(this);
    column->addLayout(upper, 1);
    column->addLayout(buttons);
    setKeyButtons(*cmdOK, *cmdOK);
    WindowCommands::bind(*this,
                         {{"cmdOK", &frmAbout::cmdOK_Click}, {"cmdSysInfo", &frmAbout::cmdSysInfo_Click}});
}

QLayout *frmAbout::buildTexts()
{
    auto *title = named<QLabel>("lblTitle", Version::product);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto *column = new QVBoxLayout;
    for (QLabel *label : {title, lblVersion, lblDescription, lblDisclaimer}) {
        label->setWordWrap(true);
        column->addWidget(label);
    }
    column->insertSpacing(column->indexOf(lblDisclaimer), fontMetrics().lineSpacing() / 2);
    column->addStretch();
    lblDisclaimer->setMinimumWidth(disclaimerWidth * fontMetrics().averageCharWidth());
    return column;
}

void frmAbout::Form_Load()
{
    lblVersion->setText(QStringLiteral("Version ") + Version::text());
    lblDescription->setText(QStringLiteral("A Combination of Useful Tools in One Application."));
    lblDisclaimer->setText(disclaimer);
}

void frmAbout::cmdOK_Click()
{
    unload();
}

void frmAbout::cmdSysInfo_Click()
{
    StartSysInfo();
}

void frmAbout::StartSysInfo()
{
    if (!SystemInformation::start())
        Ask(QStringLiteral("System Information Is Unavailable At This Time"));
}

bool frmAbout::GetKeyValue(RegistryStore::Root root, const QString &keyName, const QString &valueName,
                           QString &result)
{
    return SystemInformation::GetKeyValue(root, keyName, valueName, result);
}

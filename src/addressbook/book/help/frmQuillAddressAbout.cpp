#include "frmQuillAddressAbout.h"

#include "Ask.h"
#include "BookIcons.h"
#include "Named.h"
#include "Paths.h"
#include "SystemInformation.h"
#include "Version.h"
#include "WindowCommands.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int aboutImageSize = 64; // pixels

} // namespace

frmQuillAddressAbout::frmQuillAddressAbout()
    : Form(QStringLiteral("frmQuillAddressAbout"))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdSysInfo(named<QPushButton>("cmdSysInfo", QStringLiteral("&System Info...")))
{
    setCaption(QStringLiteral("About ") + Paths::applicationTitle);
    auto *image = new QLabel(this);
    image->setPixmap(BookIcons::book().pixmap(QSize(aboutImageSize, aboutImageSize), devicePixelRatio()));
    auto *upper = new QHBoxLayout;
    upper->addWidget(image, 0, Qt::AlignTop);
    upper->addWidget(buildTexts(), 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    auto *column = new QVBoxLayout(this);
    column->addLayout(upper, 1);
    column->addLayout(buttons);
    setKeyButtons(*cmdOK, *cmdOK);
    WindowCommands::bind(*this, {{"cmdOK", &frmQuillAddressAbout::cmdOK_Click},
                                 {"cmdSysInfo", &frmQuillAddressAbout::cmdSysInfo_Click}});
}

QWidget *frmQuillAddressAbout::buildTexts()
{
    auto *texts = new QWidget(this);
    auto *lblTitle = named<QLabel>("lblTitle", Paths::applicationTitle);
    QFont bold = lblTitle->font();
    bold.setBold(true);
    lblTitle->setFont(bold);
    auto *lblDescription =
        named<QLabel>("lblDescription", QStringLiteral("A sophisticated address book with multiple filter "
                                                       "options and birthday reminders."));
    lblDescription->setWordWrap(true);
    lblDescription->setMinimumWidth(lblDescription->fontMetrics().averageCharWidth() * 40);
    auto *column = new QVBoxLayout(texts);
    column->addWidget(lblTitle);
    column->addWidget(named<QLabel>("lblVersion", QStringLiteral("Version ") + Version::text()));
    column->addWidget(lblDescription);
    column->addStretch();
    return texts;
}

void frmQuillAddressAbout::cmdOK_Click()
{
    unload();
}

void frmQuillAddressAbout::cmdSysInfo_Click()
{
    if (!SystemInformation::start())
        Ask(QStringLiteral("System Information Is Unavailable At This Time"));
}

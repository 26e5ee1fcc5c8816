#include "frmBirthDays.h"

#include "ContactQuery.h"
#include "DateBox.h"
#include "Forms.h"
#include "Named.h"
#include "WindowCommands.h"
#include "frmAddressBook.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int dateWidth = 32; // characters, so that the title bar has room for the caption

} // namespace

frmBirthDays::frmBirthDays()
    : Form(QStringLiteral("frmBirthDays"))
    , dtFrom(named<DateBox>("dtFrom", QStringLiteral("Date")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("&Ok")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("&Cancel")))
{
    setCaption(QStringLiteral("Birth Date Reminder."));
    auto *Frame1 = named<QGroupBox>("Frame1", QStringLiteral("Birth Days of The Date"));
    auto *Label1 = named<QLabel>("Label1", QStringLiteral("Date"));
    Label1->setBuddy(dtFrom);
    auto *date = new QHBoxLayout(Frame1);
    date->addWidget(Label1);
    date->addWidget(dtFrom, 1);
    dtFrom->setMinimumWidth(dateWidth * dtFrom->fontMetrics().averageCharWidth());
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *column = new QVBoxLayout(this);
    column->addWidget(Frame1);
    column->addStretch();
    column->addLayout(buttons);
    setKeyButtons(*cmdOK, *cmdCancel);
    WindowCommands::bind(
        *this, {{"cmdOK", &frmBirthDays::cmdOK_Click}, {"cmdCancel", &frmBirthDays::cmdCancel_Click}});
}

void frmBirthDays::Form_Load()
{
    dtFrom->setValue(QDate::currentDate());
}

void frmBirthDays::cmdOK_Click()
{
    const QString filter = ContactQuery::birthdayFilter(dtFrom->Value());
    if (Forms::refer<frmAddressBook>().findContacts(filter))
        unload();
}

void frmBirthDays::cmdCancel_Click()
{
    unload();
}

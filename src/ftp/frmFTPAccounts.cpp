#include "frmFTPAccounts.h"

#include "Ask.h"
#include "EventGate.h"
#include "Forms.h"
#include "IconButton.h"
#include "ListBox.h"
#include "Named.h"
#include "PasswordBox.h"
#include "WindowCommands.h"
#include "WindowIcons.h"
#include "frmFTP.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int listWidth = 34;  // characters
constexpr int fieldWidth = 30; // characters

} // namespace

frmFTPAccounts::frmFTPAccounts()
    : Form(QStringLiteral("frmFTPAccounts"))
    , txtAccount(named<QLineEdit>("txtAccount", QStringLiteral("Account Profile Name")))
    , txtServer(named<QLineEdit>("txtServer", QStringLiteral("Server")))
    , txtUserName(named<QLineEdit>("txtUserName", QStringLiteral("User Name")))
    , txtPassword(named<PasswordBox>("txtPassword", QStringLiteral("Password")))
    , List1(named<ListBox>("List1", QStringLiteral("Currently Stored Profiles")))
    , CancelButton(named<QPushButton>("CancelButton", QStringLiteral("Done")))
    , m_icons(new WindowIcons(*this))
{
    setCaption(QStringLiteral("Quill-FTP Account Profiles"));
    auto *grid = new QGridLayout(this);
    grid->addWidget(buildFields(), 0, 0);
    grid->addWidget(buildProfiles(), 0, 1);
    grid->addWidget(buildButtons(), 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    setKeyButtons(*OKButton, *CancelButton);
    WindowCommands::bind(*this, {
                                    {"cmdSave", &frmFTPAccounts::cmdSave_Click},
                                    {"OKButton", &frmFTPAccounts::OKButton_Click},
                                    {"CancelButton", &frmFTPAccounts::CancelButton_Click},
                                });
    on(List1, &ListBox::Click, this, &frmFTPAccounts::List1_Click);
}

QWidget *frmFTPAccounts::buildFields()
{
    auto *panel = new QWidget(this);
    auto *grid = new QGridLayout(panel);
    grid->setContentsMargins({});
    int row = 0;
    const auto add = [&](const char *name, const QString &caption, QLineEdit *field) {
        auto *label = named<QLabel>(name, caption);
        label->setBuddy(field);
        field->setMinimumWidth(fieldWidth * field->fontMetrics().averageCharWidth());
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row++, 1);
    };
    add("Label1", QStringLiteral("Account Profile Name:"), txtAccount);
    add("lblServer", QStringLiteral("Server:"), txtServer);
    add("lblUserName", QStringLiteral("User Name:"), txtUserName);
    add("lblPassword", QStringLiteral("Password:"), txtPassword);
    grid->setRowStretch(row, 1);
    return panel;
}

QWidget *frmFTPAccounts::buildProfiles()
{
    auto *panel = new QWidget(this);
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins({});
    auto *Label2 = named<QLabel>("Label2", QStringLiteral("Currently Stored Profiles:"));
    Label2->setBuddy(List1);
    List1->setMinimumWidth(listWidth * List1->fontMetrics().averageCharWidth());
    column->addWidget(Label2);
    column->addWidget(List1, 1);
    column->addWidget(
        named<QLabel>("Label3", QStringLiteral("Record 0 (Zero) is the default Account Profile.")));
    return panel;
}

QWidget *frmFTPAccounts::buildButtons()
{
    cmdSave =
        iconButton(*m_icons, "cmdSave", QStringLiteral("Save Changes"), QStringLiteral("document-save"));
    OKButton = iconButton(*m_icons, "OKButton", QStringLiteral("Connect to This Account Profile"),
                          QStringLiteral("network-connect"));
    auto *panel = new QWidget(this);
    auto *row = new QHBoxLayout(panel);
    row->setContentsMargins({});
    row->addStretch();
    for (QPushButton *button : {cmdSave, OKButton, CancelButton})
        row->addWidget(button);
    return panel;
}

void frmFTPAccounts::Form_Load()
{
    readProfiles();
    showProfile(m_profiles[0]);
}

void frmFTPAccounts::readProfiles()
{
    const int count = FtpProfileFile::read(m_profiles);
    QStringList rows;
    for (int index = 0; index < count; ++index)
        rows.append(QString::number(m_profiles[index].number) + QStringLiteral(":  ") +
                    m_profiles[index].account);
    List1->addItems(rows);
}

void frmFTPAccounts::showProfile(const FtpProfile &profile)
{
    txtAccount->setText(profile.account);
    txtServer->setText(profile.server);
    txtUserName->setText(profile.userName);
    txtPassword->setText(profile.password);
}

void frmFTPAccounts::List1_Click()
{
    const int index = List1->ListIndex();
    if (index < 0)
        return;
    showProfile(m_profiles[index]);
    CurrentRecord = index;
}

void frmFTPAccounts::cmdSave_Click()
{
    FtpProfile &record = m_profiles[CurrentRecord];
    record.number = CurrentRecord;
    record.account = txtAccount->text();
    record.server = txtServer->text();
    record.userName = txtUserName->text();
    record.password = txtPassword->text();
    FtpProfileFile::write(m_profiles);
    List1->Clear();
    readProfiles();
    Ask(QStringLiteral("Changes to Record Saved."), MsgBoxStyle::Information,
        QStringLiteral("Record Saved.."));
}

/// What is on show is used, whether it has been saved or not.
void frmFTPAccounts::OKButton_Click()
{
    auto &window = Forms::refer<frmFTP>();
    const auto give = [&](const QLineEdit *box) {
        window.member<QLineEdit>(box->objectName()).setText(box->text());
    };
    give(txtAccount);
    give(txtServer);
    give(txtUserName);
    give(txtPassword);
    window.cmdLogOn_Click();
    unload();
}

void frmFTPAccounts::CancelButton_Click()
{
    unload();
}

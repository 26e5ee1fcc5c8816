#include "frmPassword.h"

#include "Ask.h"
#include "Named.h"
#include "PasswordBox.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"

#include <QGridLayout>
#include <QPushButton>

namespace {

constexpr int pictureSize = 32;     // pixels
constexpr int charactersOfBox = 36; // of the box

} // namespace

frmPassword::frmPassword()
    : Form(QStringLiteral("frmPassword"))
    , txtPassword(named<PasswordBox>("txtPassword", QStringLiteral("Password")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("Cancel")))
{
    setCaption(QStringLiteral("Enter Password"));
    const QIcon icon = ThemeIcon::named(QStringLiteral("dialog-password"));
    setWindowIcon(icon);
    auto *imgIcon = named("imgIcon", new QLabel);
    imgIcon->setPixmap(icon.pixmap({pictureSize, pictureSize}, devicePixelRatioF()));
    auto *lblPassword = named<QLabel>("lblPassword", QStringLiteral("Password:"));
    lblPassword->setBuddy(txtPassword);
    auto *lblInfo = named<QLabel>("lblInfo", QStringLiteral("Note: the password will be applied to files you "
                                                            "subsequently extract from this archive."));
    lblInfo->setWordWrap(true);
    txtPassword->setMinimumWidth(charactersOfBox * fontMetrics().averageCharWidth());
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *grid = new QGridLayout(this);
    grid->addWidget(imgIcon, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(lblPassword, 0, 1);
    grid->addWidget(txtPassword, 0, 2);
    grid->addWidget(lblInfo, 1, 1, 1, 2);
    grid->addLayout(buttons, 2, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(1, 1);
    setKeyButtons(*cmdOK, *cmdCancel);
    WindowCommands::bind(
        *this, {{"cmdOK", &frmPassword::cmdOK_Click}, {"cmdCancel", &frmPassword::cmdCancel_Click}});
}

void frmPassword::cmdOK_Click()
{
    const QString password = txtPassword->text().trimmed();
    if (password.isEmpty()) {
        Ask(QStringLiteral("Please enter a password."), MsgBoxStyle::Information);
        txtPassword->setFocus();
        return;
    }
    m_password = password;
    m_cancelled = false;
    unload();
}

void frmPassword::cmdCancel_Click()
{
    unload();
}

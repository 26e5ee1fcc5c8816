#include "frmDialingRules.h"

#include "EventGate.h"
#include "Named.h"
#include "PhoneNumber.h"
#include "WindowCommands.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

frmDialingRules::frmDialingRules()
    : Form(QStringLiteral("frmDialingRules"))
    , txtPrefix(named<QLineEdit>("txtPrefix", QStringLiteral("Digits for an outside line")))
    , lblDialled(named<QLabel>("lblDialled", QString(), QStringLiteral("Number as it is dialled")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("Cancel")))
{
    setCaption(QStringLiteral("Dialing Properties"));
    txtPrefix->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9*#]{0,8}")), txtPrefix));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *rows = new QFormLayout(this);
    rows->addRow(QStringLiteral("&Digits for an outside line:"), txtPrefix);
    rows->addRow(QStringLiteral("The number is dialled as:"), lblDialled);
    rows->addRow(buttons);
    setKeyButtons(*cmdOK, *cmdCancel);
    on(txtPrefix, &QLineEdit::textChanged, this, &frmDialingRules::txtPrefix_Change);
    WindowCommands::bind(
        *this, {{"cmdOK", &frmDialingRules::cmdOK_Click}, {"cmdCancel", &frmDialingRules::cmdCancel_Click}});
}

void frmDialingRules::edit(const QString &prefix, const QString &number)
{
    m_number = number;
    txtPrefix->setText(prefix);
    txtPrefix_Change();
}

QString frmDialingRules::prefix() const
{
    return txtPrefix->text();
}

void frmDialingRules::txtPrefix_Change()
{
    const std::optional<PhoneNumber> number = PhoneNumber::fromText(m_number);
    const PhoneNumber dialled = number.value_or(PhoneNumber()).withPrefix(number ? prefix() : QString());
    lblDialled->setText(number ? dialled.dialled() + dialled.tones() : QStringLiteral("no number to dial"));
}

void frmDialingRules::cmdOK_Click()
{
    m_isAccepted = true;
    unload();
}

void frmDialingRules::cmdCancel_Click()
{
    unload();
}

#include "DialingRulesDialog.h"

#include "EventGate.h"
#include "Named.h"
#include "PhoneNumber.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

DialingRulesDialog::DialingRulesDialog(const QString &prefix, const QString &number, QWidget *owner)
    : QDialog(owner)
    , m_number(number)
    , txtPrefix(named("txtPrefix", new QLineEdit(prefix), QStringLiteral("Digits for an outside line")))
    , lblDialled(named<QLabel>("lblDialled", QString(), QStringLiteral("Number as it is dialled")))
{
    setObjectName(QStringLiteral("DialingRulesDialog"));
    setWindowTitle(QStringLiteral("Dialing Properties"));
    txtPrefix->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9*#]{0,8}")), txtPrefix));
    auto *buttons = named("buttons", new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    auto *rows = new QFormLayout(this);
    rows->addRow(QStringLiteral("&Digits for an outside line:"), txtPrefix);
    rows->addRow(QStringLiteral("The number is dialled as:"), lblDialled);
    rows->addRow(buttons);
    on(txtPrefix, &QLineEdit::textChanged, this, &DialingRulesDialog::txtPrefix_Change);
    on(buttons, &QDialogButtonBox::accepted, this, &DialingRulesDialog::accept);
    on(buttons, &QDialogButtonBox::rejected, this, &DialingRulesDialog::reject);
    txtPrefix_Change();
}

QString DialingRulesDialog::prefix() const
{
    return txtPrefix->text();
}

void DialingRulesDialog::txtPrefix_Change()
{
    const std::optional<PhoneNumber> number = PhoneNumber::fromText(m_number);
    const PhoneNumber dialled = number.value_or(PhoneNumber()).withPrefix(number ? prefix() : QString());
    lblDialled->setText(number ? dialled.dialled() + dialled.tones() : QStringLiteral("no number to dial"));
}

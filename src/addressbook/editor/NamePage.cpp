#include "NamePage.h"

#include "BirthDate.h"
#include "BoxText.h"
#include "ChoiceBox.h"
#include "DateText.h"
#include "EMailBoxes.h"
#include "EventGate.h"
#include "FieldGrid.h"
#include "FieldLimits.h"
#include "FocusLoss.h"
#include "SeedRows.h"
#include "modGetFunctions.h"
#include "modMain.h"

#include <QLineEdit>

NamePage::NamePage()
{
    auto *person = new FieldGrid;
    auto *eMail = new FieldGrid;
    auto *comment = new FieldGrid;
    auto *column = new QVBoxLayout(this);
    column->addLayout(FieldGrid::sideBySide(person, eMail));
    column->addLayout(comment);
    buildPerson(*person);
    m_eMails = new EMailBoxes(*eMail);
    buildComment(*comment);
    FieldGrid::align({person, comment});
    bind();
}

void NamePage::buildPerson(FieldGrid &grid)
{
    cmbSalute = grid.addChoice("cmbSalute", QStringLiteral("Salutation"));
    txtName = grid.addText("txtName", QStringLiteral("Full Name"), FieldLimits::name);
    txtNick = grid.addText("txtNick", QStringLiteral("Nick Name"), FieldLimits::name);
    cmbGroups = grid.addChoice("cmbGroups", QStringLiteral("Group"));
    txtBDate = grid.addText("txtBDate", QStringLiteral("Birth Date"));
    txtBDate->setPlaceholderText(QStringLiteral("e.g. 5-Sep-1999"));
    txtBDate->setToolTip(QStringLiteral("A date as 5-Sep-1999 or 1999-09-05"));
    grid.endRows();
}

void NamePage::buildComment(FieldGrid &grid)
{
    txtComment = grid.addText("txtComment", QStringLiteral("Comments"), FieldLimits::comment);
}

void NamePage::bind()
{
    on(new FocusLoss(*cmbSalute), &FocusLoss::LostFocus, this, &NamePage::cmbSalute_LostFocus);
    on(new FocusLoss(*cmbGroups), &FocusLoss::LostFocus, this, &NamePage::cmbGroups_LostFocus);
    on(new FocusLoss(*txtBDate), &FocusLoss::LostFocus, this, &NamePage::txtBDate_LostFocus);
}

void NamePage::fill()
{
    cmbSalute->addItems(
        {QStringLiteral("Mr."), QStringLiteral("Miss."), QStringLiteral("Mrs."), QStringLiteral("M/S.")});
    cmbSalute->setText({});
    FillGroupCombo(*cmbGroups);
}

void NamePage::setRow(const NameRow &row)
{
    cmbSalute->setText(row.salutation);
    BoxText::set(*txtName, row.name);
    BoxText::set(*txtNick, row.nickName);
    BoxText::set(*txtComment, row.comment);
    txtBDate->setText(BirthDate::shown(row.birthDate));
    cmbGroups->setText(GetGroupName(row.groupId));
}

NameRow NamePage::row() const
{
    return {
        .groupId = GetGroupId(cmbGroups->currentText()),
        .salutation = cmbSalute->currentText(),
        .name = txtName->text().trimmed(),
        .nickName = txtNick->text().trimmed(),
        .comment = txtComment->text().trimmed(),
        .birthDate = DateText::parse(txtBDate->text()),
    };
}

void NamePage::setEMails(const QStringList &addresses)
{
    m_eMails->setAddresses(addresses);
}

QStringList NamePage::eMails() const
{
    return m_eMails->addresses();
}

bool NamePage::hasName() const
{
    return !txtName->text().trimmed().isEmpty();
}

void NamePage::requireGroup()
{
    if (cmbGroups->currentText().isEmpty())
        cmbGroups->setText(SeedRows::group);
}

void NamePage::cmbSalute_LostFocus()
{
    ValidateCombo(*cmbSalute, true);
}

void NamePage::cmbGroups_LostFocus()
{
    ValidateCombo(*cmbGroups, true);
}

/// Intended: what is no date is removed without a word.
void NamePage::txtBDate_LostFocus()
{
    txtBDate->setText(BirthDate::tidied(txtBDate->text()));
}

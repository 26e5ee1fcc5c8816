#include "EMailBoxes.h"

#include "EventGate.h"
#include "FieldGrid.h"
#include "ListBox.h"
#include "Named.h"

#include <QLineEdit>
#include <QPushButton>

EMailBoxes::EMailBoxes(FieldGrid &grid)
    : QObject(&grid)
    , txtEMail(named<QLineEdit>("txtEMail", QStringLiteral("E-Mail")))
    , cmdAdd(named<QPushButton>("cmdAdd", QStringLiteral("&Add")))
    , lstEMail(named<ListBox>("lstEMail", QStringLiteral("E-Mail addresses")))
    , cmdRemove(named<QPushButton>("cmdRemove", QStringLiteral("&Remove")))
{
    grid.addField("txtEMail", QStringLiteral("E-Mail"), txtEMail, cmdAdd);
    const int row = grid.rowCount();
    grid.addWidget(lstEMail, row, 1);
    grid.addWidget(cmdRemove, row, 2, Qt::AlignTop);
    grid.setRowStretch(row, 1);
    on(cmdAdd, &QPushButton::clicked, this, &EMailBoxes::cmdAdd_Click);
    on(txtEMail, &QLineEdit::returnPressed, this, &EMailBoxes::cmdAdd_Click);
    on(cmdRemove, &QPushButton::clicked, this, &EMailBoxes::cmdRemove_Click);
    on(lstEMail, &ListBox::KeyDown, this, &EMailBoxes::lstEMail_KeyDown);
}

QStringList EMailBoxes::addresses() const
{
    QStringList addresses;
    for (int index = 0; index < lstEMail->ListCount(); ++index)
        addresses.append(lstEMail->List(index));
    return addresses;
}

void EMailBoxes::setAddresses(const QStringList &addresses)
{
    lstEMail->Clear();
    lstEMail->addItems(addresses);
}

/// Intended: the address is taken as it was typed, with its blanks, and twice if it is added twice.
void EMailBoxes::cmdAdd_Click()
{
    if (!txtEMail->text().isEmpty())
        lstEMail->AddItem(txtEMail->text());
    txtEMail->clear();
    txtEMail->setFocus();
}

void EMailBoxes::cmdRemove_Click()
{
    if (!lstEMail->Text().isEmpty())
        lstEMail->RemoveItem(lstEMail->ListIndex());
}

void EMailBoxes::lstEMail_KeyDown(int key)
{
    if (key == Qt::Key_Delete)
        cmdRemove_Click();
}

#include "frmRegister.h"

#include "AddressDatabase.h"
#include "AskAgain.h"
#include "BoxText.h"
#include "FieldLimits.h"
#include "Named.h"
#include "ReferenceEntity.h"
#include "ReferenceLayout.h"
#include "Transaction.h"
#include "UnlessLocked.h"
#include "WindowCommands.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmRegister::frmRegister()
    : Form(QStringLiteral("frmRegister"))
    , lblDisp(named<QLabel>("lblDisp", QString()))
    , txtEntity(named<QLineEdit>("txtEntity"))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("&Ok")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("&Cancel")))
{
    ReferenceLayout::build(*this, {{lblDisp, txtEntity}}, *cmdOK, *cmdCancel);
    txtEntity->setMaxLength(FieldLimits::name);
    setKeyButtons(*cmdOK, *cmdCancel);
    WindowCommands::bind(*this, {
                                    {"cmdOK", &frmRegister::cmdOK_Click},
                                    {"cmdCancel", &frmRegister::cmdCancel_Click},
                                });
}

void frmRegister::configure(const QString &entityType)
{
    setCaption(QStringLiteral("New ") + entityType);
    setEntity(QStringLiteral("New"), entityType);
}

void frmRegister::configureEdit(const QString &entityType, qint16 id)
{
    setCaption(QStringLiteral("Edit ") + entityType);
    setEntity(QStringLiteral("Modify"), entityType);
    CurrentEntityId = id;
    if (const ReferenceEntity *entity = ReferenceEntity::of(EntityType))
        BoxText::set(*txtEntity, entity->name(id));
}

void frmRegister::setEntity(const QString &editMode, const QString &entityType)
{
    EditMode = editMode;
    EntityType = entityType;
    const ReferenceEntity *entity = ReferenceEntity::of(EntityType);
    lblDisp->setText(entity ? QString::fromLatin1(entity->caption) : EntityType);
    txtEntity->setAccessibleName(lblDisp->text());
}

void frmRegister::cmdOK_Click()
{
    if (txtEntity->text().trimmed().isEmpty())
        return AskAgain(*txtEntity, QStringLiteral("Enter Value..."));
    bool isStored = false;
    if (!unlessLocked([&] { isStored = store(); }))
        return;
    if (!isStored)
        return AskAgain(*txtEntity, QString::fromLatin1(ReferenceEntity::of(EntityType)->alreadyExists));
    EditMode.clear();
    EntityType.clear();
    unload();
}

/// In one transaction, since another program may add rows too.
///
/// Intended: a new name is looked up without the blanks around it and stored with them.
bool frmRegister::store()
{
    Transaction transaction(AddressConnection);
    const ReferenceEntity *entity = ReferenceEntity::of(EntityType);
    if (entity && EditMode == u"Modify")
        entity->rename(CurrentEntityId, txtEntity->text());
    if (entity && EditMode == u"New") {
        if (entity->exists(txtEntity->text().trimmed()))
            return false;
        entity->add(txtEntity->text());
    }
    transaction.commit();
    return true;
}

void frmRegister::cmdCancel_Click()
{
    unload();
}

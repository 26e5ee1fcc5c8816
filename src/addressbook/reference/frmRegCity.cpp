#include "frmRegCity.h"

#include "AddressDatabase.h"
#include "AskAgain.h"
#include "BoxText.h"
#include "ChoiceBox.h"
#include "CityRows.h"
#include "EventGate.h"
#include "FieldLimits.h"
#include "FocusLoss.h"
#include "Named.h"
#include "ReferenceLayout.h"
#include "Transaction.h"
#include "UnlessLocked.h"
#include "WindowCommands.h"
#include "modGetFunctions.h"
#include "modMain.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmRegCity::frmRegCity()
    : Form(QStringLiteral("frmRegCity"))
    , txtCity(named<QLineEdit>("txtCity", QStringLiteral("City Name")))
    , cmbStates(named<ChoiceBox>("cmbStates", QStringLiteral("County/ State/ Province")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("&Ok")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("&Cancel")))
{
    setCaption(QStringLiteral("New City"));
    auto *lblDisp = named<QLabel>("lblDisp", QStringLiteral("City Name"));
    auto *Label1 = named<QLabel>("Label1", QStringLiteral("County/ State/ Province"));
    ReferenceLayout::build(*this, {{lblDisp, txtCity}, {Label1, cmbStates}}, *cmdOK, *cmdCancel);
    txtCity->setMaxLength(FieldLimits::name);
    setKeyButtons(*cmdOK, *cmdCancel);
    WindowCommands::bind(*this, {
                                    {"cmdOK", &frmRegCity::cmdOK_Click},
                                    {"cmdCancel", &frmRegCity::cmdCancel_Click},
                                });
    on(new FocusLoss(*cmbStates), &FocusLoss::LostFocus, this, &frmRegCity::cmbStates_LostFocus);
}

void frmRegCity::Form_Load()
{
    FillStateCombo(*cmbStates);
}

void frmRegCity::changeEvent(QEvent *event)
{
    Form::changeEvent(event);
    run([&] {
        if (event->type() == QEvent::ActivationChange && isActiveWindow() && isLoaded())
            Form_Activate();
    });
}

/// Another window may have added a state meanwhile.
void frmRegCity::Form_Activate()
{
    const QString state = cmbStates->currentText();
    FillStateCombo(*cmbStates);
    cmbStates->setText(state);
}

void frmRegCity::configureEdit(qint16 cityId)
{
    EditMode = QStringLiteral("Modify");
    CurrentCityId = cityId;
    BoxText::set(*txtCity, GetCityName(QString::number(cityId)));
    cmbStates->setText(GetStateOfCity(cityId));
    setCaption(QStringLiteral("Edit City"));
}

void frmRegCity::cmbStates_LostFocus()
{
    ValidateCombo(*cmbStates, false);
}

void frmRegCity::cmdOK_Click()
{
    if (txtCity->text().trimmed().isEmpty())
        return AskAgain(*txtCity, QStringLiteral("Enter City Name..."));
    if (cmbStates->currentText().trimmed().isEmpty())
        return AskAgain(*cmbStates, QStringLiteral("State ? "));
    bool isStored = false;
    if (!unlessLocked([&] { isStored = store(); }))
        return;
    if (!isStored)
        return AskAgain(*txtCity, QStringLiteral("City Already Exists..."));
    EditMode.clear();
    unload();
    CurrentCityId = 0;
}

/// Looked up and stored in one transaction, since another program may add cities too.
bool frmRegCity::store()
{
    Transaction transaction(AddressConnection);
    const QString name = txtCity->text().trimmed();
    const QString state = cmbStates->currentText();
    if (EditMode == u"Modify")
        CityRows::change(CurrentCityId, name, state);
    if (EditMode == u"New") {
        if (GetCityId(name) > 0)
            return false;
        CityRows::add(name, state);
    }
    transaction.commit();
    return true;
}

void frmRegCity::cmdCancel_Click()
{
    unload();
    EditMode.clear();
}

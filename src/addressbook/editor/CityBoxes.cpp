#include "CityBoxes.h"

#include "ChoiceBox.h"
#include "EventGate.h"
#include "SeedRows.h"
#include "UnlessLocked.h"
#include "modGetFunctions.h"
#include "modMain.h"

#include <QLineEdit>

CityBoxes::CityBoxes(ChoiceBox &city, QLineEdit &state)
    : QObject(&city)
    , m_city(city)
    , m_state(state)
{
    m_state.setReadOnly(true); // it is stored with the city
    m_state.setToolTip(QStringLiteral("The state that the chosen city is in"));
    on(&m_city, &ChoiceBox::Click, this, &CityBoxes::city_Click);
}

void CityBoxes::fill()
{
    FillCityCombo(m_city);
    if (!m_city.currentText().isEmpty())
        return;
    m_city.setText(SeedRows::place);
    m_state.setText(SeedRows::place);
}

void CityBoxes::setCity(qint16 id)
{
    m_city.setText(GetCityName(QString::number(id)));
}

void CityBoxes::showState()
{
    m_state.setText(GetStateOfCity(cityId()));
}

void CityBoxes::requireCity()
{
    if (!m_city.currentText().isEmpty())
        return;
    m_city.setCurrentIndex(0);
    showChosenState();
}

qint16 CityBoxes::cityId() const
{
    return GetCityId(m_city.currentText());
}

/// A state that cannot be read now is no loss, as it is stored with the city.
void CityBoxes::city_Click()
{
    unlessLocked([this] { showChosenState(); });
}

void CityBoxes::showChosenState()
{
    if (!m_city.currentText().trimmed().isEmpty())
        showState();
}

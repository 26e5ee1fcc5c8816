#pragma once

#include <QObject>

class ChoiceBox;
class QLineEdit;

/// The city of an address, typed or chosen, and beside it the state that the chosen city is in. The functions
/// throw RuntimeError.
class CityBoxes : public QObject
{
    Q_OBJECT

public:
    /// Is owned by \a city.
    CityBoxes(ChoiceBox &city, QLineEdit &state);

    /// Fills the list with all cities and shows the placeholder "..".
    void fill();
    /// Leaves the state as it is.
    void setCity(qint16 id);
    void showState();
    /// Chooses the first city where no text is in the box.
    void requireCity();

    /// 0 where the text names no city.
    qint16 cityId() const;

private:
    void city_Click();
    void showChosenState();

    ChoiceBox &m_city;
    QLineEdit &m_state;
};

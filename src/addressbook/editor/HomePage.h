#pragma once

#include "HomeRow.h"

#include <QWidget>

class AddressBox;
class CityBoxes;
class FieldGrid;
class QLineEdit;
class WindowIcons;

/// The page of the home address and the telephones there. The functions throw RuntimeError.
class HomePage : public QWidget
{
    Q_OBJECT

public:
    explicit HomePage(WindowIcons &icons);

    /// The state is shown by city().showState().
    void setRow(const HomeRow &row);
    /// City 0 where the text names none.
    HomeRow row() const;
    CityBoxes &city() const { return *m_city; }

private:
    void buildAddress(FieldGrid &grid);
    void buildPhones(FieldGrid &grid, WindowIcons &icons);

    AddressBox *txtHAddress;
    CityBoxes *m_city;
    QLineEdit *txtHZipCode;
    QLineEdit *txtHPhone1;
    QLineEdit *txtHPhone2;
    QLineEdit *txtMobile;
};

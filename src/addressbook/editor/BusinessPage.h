#pragma once

#include "BusinessRow.h"

#include <QWidget>

class AddressBox;
class CityBoxes;
class FieldGrid;
class QLineEdit;
class WindowIcons;

/// The page of the company, the work address and the telephones there. The functions throw RuntimeError.
class BusinessPage : public QWidget
{
    Q_OBJECT

public:
    explicit BusinessPage(WindowIcons &icons);

    /// The state is shown by city().showState().
    void setRow(const BusinessRow &row);
    /// City 0 where the text names none.
    BusinessRow row() const;
    CityBoxes &city() const { return *m_city; }

private:
    void buildAddress(FieldGrid &grid);
    void buildPhones(FieldGrid &grid, WindowIcons &icons);

    QLineEdit *txtCompany;
    QLineEdit *txtPost;
    AddressBox *txtBAddress;
    CityBoxes *m_city;
    QLineEdit *txtBZipCode;
    QLineEdit *txtDept;
    QLineEdit *txtBPhone1;
    QLineEdit *txtBPhone2;
    QLineEdit *txtFax;
    QLineEdit *txtPager;
};

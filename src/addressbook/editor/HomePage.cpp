#include "HomePage.h"

#include "AddressBox.h"
#include "CityBoxes.h"
#include "FieldGrid.h"

#include <QLineEdit>

HomePage::HomePage(WindowIcons &icons)
{
    auto *address = new FieldGrid;
    auto *phones = new FieldGrid;
    setLayout(FieldGrid::sideBySide(address, phones));
    buildAddress(*address);
    buildPhones(*phones, icons);
}

void HomePage::buildAddress(FieldGrid &grid)
{
    txtHAddress = grid.addAddress("txtHAddress", QStringLiteral("Address"));
    auto *cmbHCity = grid.addChoice("cmbHCity", QStringLiteral("City/Town"));
    auto *txtState = grid.addText("txtState", QStringLiteral("State/ County/ Province"));
    m_city = new CityBoxes(*cmbHCity, *txtState);
    txtHZipCode = grid.addText("txtHZipCode", QStringLiteral("Postal/ Zip Code"));
    grid.endRows();
}

void HomePage::buildPhones(FieldGrid &grid, WindowIcons &icons)
{
    txtHPhone1 = grid.addPhone("txtHPhone1", QStringLiteral("Phone 1"), "Command1", icons);
    txtHPhone2 = grid.addPhone("txtHPhone2", QStringLiteral("Phone 2"), "Command2", icons);
    txtMobile = grid.addPhone("txtMobile", QStringLiteral("Mobile"), "Command3", icons);
    grid.endRows();
}

void HomePage::setRow(const HomeRow &row)
{
    txtHAddress->setText(row.address);
    m_city->setCity(row.cityId);
    txtHZipCode->setText(row.zipCode);
    txtHPhone1->setText(row.phone1);
    txtHPhone2->setText(row.phone2);
    txtMobile->setText(row.mobile);
}

HomeRow HomePage::row() const
{
    return {
        .address = txtHAddress->text().trimmed(),
        .cityId = m_city->cityId(),
        .zipCode = txtHZipCode->text().trimmed(),
        .phone1 = txtHPhone1->text().trimmed(),
        .phone2 = txtHPhone2->text().trimmed(),
        .mobile = txtMobile->text().trimmed(),
    };
}

#include "BusinessPage.h"

#include "AddressBox.h"
#include "BoxText.h"
#include "CityBoxes.h"
#include "FieldGrid.h"
#include "FieldLimits.h"

#include <QLineEdit>

BusinessPage::BusinessPage(WindowIcons &icons)
{
    auto *address = new FieldGrid;
    auto *phones = new FieldGrid;
    setLayout(FieldGrid::sideBySide(address, phones));
    buildAddress(*address);
    buildPhones(*phones, icons);
}

void BusinessPage::buildAddress(FieldGrid &grid)
{
    txtCompany = grid.addText("txtCompany", QStringLiteral("Company"), FieldLimits::name);
    txtPost = grid.addText("txtPost", QStringLiteral("Post"), FieldLimits::name);
    txtBAddress = grid.addAddress("txtBAddress", QStringLiteral("Address"));
    auto *cmbBCity = grid.addChoice("cmbBCity", QStringLiteral("City/Town"));
    auto *txtBState = grid.addText("txtBState", QStringLiteral("State/ County/ Province"));
    m_city = new CityBoxes(*cmbBCity, *txtBState);
    txtBZipCode = grid.addText("txtBZipCode", QStringLiteral("Postal/ Zip Code"));
    grid.endRows();
}

void BusinessPage::buildPhones(FieldGrid &grid, WindowIcons &icons)
{
    txtDept = grid.addText("txtDept", QStringLiteral("Department"), FieldLimits::name);
    txtBPhone1 = grid.addPhone("txtBPhone1", QStringLiteral("Phone 1"), "Command4", icons);
    txtBPhone2 = grid.addPhone("txtBPhone2", QStringLiteral("Phone 2"), "Command5", icons);
    txtFax = grid.addText("txtFax", QStringLiteral("Fax"));
    txtPager = grid.addPhone("txtPager", QStringLiteral("Mobile"), "Command6", icons);
    grid.endRows();
}

void BusinessPage::setRow(const BusinessRow &row)
{
    txtBAddress->setText(row.address);
    txtBZipCode->setText(row.zipCode);
    txtBPhone1->setText(row.phone1);
    txtBPhone2->setText(row.phone2);
    txtFax->setText(row.fax);
    txtPager->setText(row.pager);
    BoxText::set(*txtCompany, row.company);
    BoxText::set(*txtPost, row.post);
    BoxText::set(*txtDept, row.department);
    m_city->setCity(row.cityId);
}

BusinessRow BusinessPage::row() const
{
    return {
        .address = txtBAddress->text().trimmed(),
        .cityId = m_city->cityId(),
        .zipCode = txtBZipCode->text().trimmed(),
        .phone1 = txtBPhone1->text().trimmed(),
        .phone2 = txtBPhone2->text().trimmed(),
        .fax = txtFax->text().trimmed(),
        .pager = txtPager->text().trimmed(),
        .company = txtCompany->text().trimmed(),
        .post = txtPost->text().trimmed(),
        .department = txtDept->text().trimmed(),
    };
}

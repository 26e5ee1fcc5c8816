#pragma once

#include <QString>

/// A contact as the reports print it, all values as texts. What the contact does not have is empty.
struct ReportRecord
{
    enum class Phones {
        Both, ///< "first:second"
        First,
    };

    /// Reads the contact \a number by way of AddressConnection. Throws RuntimeError with the numbers of
    /// DataError: DataError::NoCurrentRow where the contact lacks a row, or its cities lack a state. The
    /// values that were read before the failure are then the contact's, the others are those of before.
    void read(qint32 number, Phones phones);

    QString name;
    QString nickName;
    QString comment;
    QString birthDate; ///< "05-Sep-1999"
    QString groupName;
    /// Intended: a blank for each address that was ever read, of this and of all contacts before.
    QString eMailText;

    QString homeAddress; ///< may hold line breaks
    QString homeCity;
    QString homeState;
    QString homeZip;
    QString homePhones;
    QString homeMobile;

    QString workAddress; ///< may hold line breaks
    QString workCity;
    QString workState;
    QString workZip;
    QString workPhones;
    QString workFax;
    QString workMobile;
    QString company;
    QString post;
    QString department;

private:
    void readName(qint32 number);
    void readHome(qint32 number, Phones phones);
    void readBusiness(qint32 number, Phones phones);
};

#include "ProofingLanguage.h"

#include <QLocale>
#include <unicode/uloc.h>

QString ProofingLanguage::name(int number)
{
    constexpr int none = 1024;
    char name[ULOC_FULLNAME_CAPACITY] = {};
    UErrorCode error = U_ZERO_ERROR;
    if (number <= 0 || number == none)
        return {};
    uloc_getLocaleForLCID(uint32_t(number), name, sizeof name, &error);
    return error == U_ZERO_ERROR ? QString::fromLatin1(name) : QString();
}

QString ProofingLanguage::ofDesktop()
{
    static const QString name = QLocale::system().name();
    return name == QLatin1String("C") ? QString() : name;
}

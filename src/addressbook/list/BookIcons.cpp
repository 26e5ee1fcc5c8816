#include "BookIcons.h"

#include "ThemeIcon.h"

QIcon BookIcons::book()
{
    return ThemeIcon::named(QStringLiteral("addressbook"));
}

QIcon BookIcons::contact()
{
    return ThemeIcon::named(QStringLiteral("addressbook-contact"));
}

QIcon BookIcons::ofTable(const QString &table)
{
    return ThemeIcon::named(QStringLiteral("addressbook-") + table.toLower());
}

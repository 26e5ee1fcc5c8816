#include "DataEntryError.h"

#include <QStringList>

QString DataEntryError::text(const RuntimeError &error)
{
    const QStringList lines = {
        QStringLiteral("There is an error in the data you entered,"),
        QStringLiteral("please correct the entry and try again!"),
        QStringLiteral("The most likely error is that you tried"),
        QStringLiteral("to enter a City/Town instead of selecting one"),
        QStringLiteral("from the list."),
        QStringLiteral("Error Code:") + QString::number(error.number()),
        QStringLiteral("Detail:") + error.description(),
    };
    return lines.join(QLatin1String("\r\n"));
}

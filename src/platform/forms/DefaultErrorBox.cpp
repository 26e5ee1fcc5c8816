#include "DefaultErrorBox.h"

#include "Prompts.h"

void showDefaultErrorBox(int number, const QString &description)
{
    MsgBox(QStringLiteral("Run-time error '%1':\n\n%2").arg(QString::number(number), description),
           MsgBoxStyle::Critical);
}

#include "AskAgain.h"

#include "Ask.h"

#include <QWidget>

void AskAgain(QWidget &control, const QString &text)
{
    Ask(text);
    control.setFocus();
}

#include "PromptOwner.h"

#include <QApplication>

QWidget *promptOwner()
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

#include "ShowDialog.h"

#include "RunningHandler.h"

#include <QDialog>

int showDialog(QDialog &dialog)
{
    const RunningHandler running;
    return dialog.exec();
}

#include "ChildForm.h"

#include "Globals.h"
#include "MainFrame.h"

void ChildForm::showModeless()
{
    load();
    if (mainFrame)
        mainFrame->place(*this);
    else
        Form::showModeless();
}

void ChildForm::dispose()
{
    // The frame's window around this one goes with it.
    if (QWidget *place = parentWidget())
        place->close();
    else
        Form::dispose();
}

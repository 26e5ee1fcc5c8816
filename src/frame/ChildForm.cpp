#include "ChildForm.h"

#include "Globals.h"
#include "MainFrame.h"

void ChildForm::takePlace()
{
    if (mainFrame)
        mainFrame->adopt(*this);
}

void ChildForm::showModeless()
{
    load();
    if (!isLoaded())
        return; // its load has unloaded it
    if (mainFrame)
        mainFrame->bringForward(*this);
    else
        Form::showModeless();
}

void ChildForm::dispose()
{
    // The child area's window around this one is closed with it.
    if (QWidget *outer = parentWidget())
        outer->close();
    else
        Form::dispose();
}

const QWidget &ChildForm::outerWindow() const
{
    const QWidget *outer = parentWidget();
    return outer ? *outer : *this;
}

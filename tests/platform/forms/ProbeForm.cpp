#include "ProbeForm.h"

#include "EventGate.h"

ProbeForm::ProbeForm(QStringList &steps, const QString &name)
    : Form(name)
    , m_steps(steps)
{}

void ProbeForm::Form_Load()
{
    m_steps << QStringLiteral("load");
    onLoad();
}

void ProbeForm::Form_Resize()
{
    onResize();
}

bool ProbeForm::Form_QueryUnload()
{
    m_steps << QStringLiteral("query");
    return onQueryUnload();
}

void ProbeForm::Form_Unload()
{
    m_steps << QStringLiteral("unload");
    onUnload();
}

void ProbeForm::Form_Terminate()
{
    m_steps << QStringLiteral("terminate");
    onTerminate();
}

void ProbeForm::keyPressEvent(QKeyEvent *event)
{
    if (onKey)
        run([&] { onKey(); });
    else
        Form::keyPressEvent(event);
}

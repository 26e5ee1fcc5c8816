#include "Ask.h"

#include "Globals.h"

int Ask(const QString &text, MsgBoxStyle style, const QString &title)
{
    const int reply = MsgBox(text, style, title);
    lastAnswer = QString::number(reply);
    return reply;
}

#pragma once

#include "Prompts.h"

/// MsgBox whose reply is also kept in lastAnswer, as every message box of the suite does.
int Ask(const QString &text, MsgBoxStyle style = MsgBoxStyle::Plain, const QString &title = {});

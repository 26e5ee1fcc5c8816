#pragma once

#include <QString>

/// Asks for one line of text under \a prompt, with \a text in the box to begin with. An empty \a title
/// means the application title. Returns what was typed, an empty text when the box was cancelled.
QString InputBox(const QString &prompt, const QString &title = {}, const QString &text = {});

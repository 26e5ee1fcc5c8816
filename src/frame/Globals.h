#pragma once

#include <QString>

class MainFrame;

// The public globals of the shell. They live as long as the process and belong to its one thread.

/// The one frame; nullptr before the entry routine has made it.
extern MainFrame *mainFrame;

/// 1 shows the splash at start, 0 does not.
extern qint16 showSplash;

/// A document has just been made or loaded: the next time its text gets the focus its dirty state is cleared.
extern bool freshDocument;

/// The most recent message-box reply or launched-process identifier, as decimal text.
extern QString lastAnswer;

/// "Setup" or "Use".
extern QString diallerMode;

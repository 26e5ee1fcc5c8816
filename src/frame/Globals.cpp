#include "Globals.h"

MainFrame *mainFrame = nullptr;
qint16 showSplash = 0;
bool freshDocument = false;
QString lastAnswer;
QString diallerMode;

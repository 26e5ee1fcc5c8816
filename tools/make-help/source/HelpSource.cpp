#include "HelpSource.h"

#include "HelpSourceReader.h"

HelpSource HelpSource::read(const QString &text)
{
    return HelpSourceReader().read(text);
}

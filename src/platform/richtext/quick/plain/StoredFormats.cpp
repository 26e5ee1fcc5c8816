#include "StoredFormats.h"

int StoredFormats::changeParagraphs(QTextDocument &, int, const std::function<void(QTextBlockFormat &)> &)
{
    return 0;
}

#include "QuickLayout.h"

#include "TypingLayout.h"

namespace {

TypingLayout &layoutOf(const QTextDocument &document)
{
    return *static_cast<TypingLayout *>(document.documentLayout()); // which install() has given it
}

} // namespace

bool QuickLayout::isAvailable()
{
    return true;
}

void QuickLayout::install(QTextDocument &document, QTextEdit &view)
{
    document.setDocumentLayout(new TypingLayout(document, view)); // the document owns it
}

bool QuickLayout::isBehind(const QTextDocument &document)
{
    return layoutOf(document).isBehind();
}

void QuickLayout::catchUp(QTextDocument &document)
{
    layoutOf(document).catchUp();
}

std::pair<int, int> QuickLayout::stretchInView(const QTextDocument &document, const QTextEdit &)
{
    return layoutOf(document).stretchInView();
}

#include "FormatButtons.h"

#include "RichTextBox.h"
#include "Toolbar.h"

void FormatButtons::update(Toolbar &toolbar, const RichTextBox &text)
{
    toolbar.setPressed(QStringLiteral("Bold"), text.SelBold() == true);
    toolbar.setPressed(QStringLiteral("Italic"), text.SelItalic() == true);
    toolbar.setPressed(QStringLiteral("Underline"), text.SelUnderline() == true);
    toolbar.setPressed(QStringLiteral("Align Left"), text.SelAlignment() == 0);
    toolbar.setPressed(QStringLiteral("Center"), text.SelAlignment() == 2);
    toolbar.setPressed(QStringLiteral("Align Right"), text.SelAlignment() == 1);
    toolbar.setPressed(QStringLiteral("bullet"), text.SelBullet() == true);
    toolbar.setPressed(QStringLiteral("indent"), false);
    toolbar.setPressed(QStringLiteral("removeindent"), false);
}

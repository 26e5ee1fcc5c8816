#include "BoxText.h"

#include <QLineEdit>

void BoxText::set(QLineEdit &box, const QString &text)
{
    box.setMaxLength(qMax(box.maxLength(), int(text.size())));
    box.setText(text);
}

#include "StatusBarPanel.h"

#include "ShownText.h"

StatusBarPanel::StatusBarPanel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void StatusBarPanel::setText(const QString &text)
{
    m_text = text;
    QLabel::setText(ShownText::line(text));
}

#include "BoxStep.h"

#include "SeenDialog.h"

#include <QAbstractButton>
#include <QPushButton>
#include <gtest/gtest.h>

BoxStep::BoxStep(const QString &title, const QString &text)
    : m_title(title)
    , m_text(text)
{}

BoxStep &BoxStep::icon(QMessageBox::Icon icon)
{
    m_icon = icon;
    return *this;
}

BoxStep &BoxStep::buttons(QMessageBox::StandardButtons buttons)
{
    m_buttons = buttons;
    return *this;
}

BoxStep &BoxStep::defaultButton(QMessageBox::StandardButton button)
{
    m_default = button;
    return *this;
}

BoxStep &BoxStep::press(QMessageBox::StandardButton button)
{
    m_press = button;
    return *this;
}

bool BoxStep::matches(const QWidget &window) const
{
    const auto *box = qobject_cast<const QMessageBox *>(&window);
    return box && box->windowTitle() == m_title && SeenDialog::of(*box).text == m_text;
}

void BoxStep::answer(QWidget &window) const
{
    auto &box = static_cast<QMessageBox &>(window);
    EXPECT_EQ(box.textFormat(), Qt::PlainText) << "what it names may look like markup";
    if (m_icon) {
        EXPECT_EQ(box.icon(), *m_icon) << qUtf8Printable(describe());
    }
    if (m_buttons) {
        EXPECT_EQ(box.standardButtons().toInt(), m_buttons->toInt()) << qUtf8Printable(describe());
    }
    if (m_default) {
        EXPECT_EQ(box.defaultButton(), box.button(*m_default)) << qUtf8Printable(describe());
    }
    if (QAbstractButton *button = box.button(m_press))
        button->click();
    else
        ADD_FAILURE() << "no button to press: " << qUtf8Printable(describe());
}

QString BoxStep::describe() const
{
    return QStringLiteral("a box, title \"%1\", text \"%2\", button %3")
        .arg(m_title, m_text)
        .arg(int(m_press), 0, 16);
}

#include "InputStep.h"

#include "SeenDialog.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

InputStep::InputStep(const QString &title, const QString &prompt)
    : m_title(title)
    , m_prompt(prompt)
{}

InputStep &InputStep::suggests(const QString &text)
{
    m_suggestion = text;
    return *this;
}

InputStep &InputStep::type(const QString &text)
{
    m_text = text;
    return *this;
}

InputStep &InputStep::press(QMessageBox::StandardButton button)
{
    m_press = button;
    return *this;
}

bool InputStep::matches(const QWidget &window) const
{
    const SeenDialog seen = SeenDialog::of(window);
    return seen.objectName == QLatin1String("InputBox") && seen.title == m_title && seen.text == m_prompt;
}

void InputStep::answer(QWidget &window) const
{
    auto *edit = window.findChild<QLineEdit *>(QStringLiteral("txtAnswer"));
    auto *buttons = window.findChild<QDialogButtonBox *>();
    ASSERT_TRUE(edit && buttons) << qUtf8Printable(describe());
    if (m_suggestion) {
        EXPECT_EQ(edit->text(), *m_suggestion) << qUtf8Printable(describe());
    }
    if (m_text) {
        edit->selectAll();
        m_text->isEmpty() ? edit->clear() : QTest::keyClicks(edit, *m_text);
    }
    if (QPushButton *button = buttons->button(QDialogButtonBox::StandardButton(m_press)))
        button->click();
    else
        ADD_FAILURE() << "no button to press: " << qUtf8Printable(describe());
}

QString InputStep::describe() const
{
    return QStringLiteral("an input box, title \"%1\", prompt \"%2\", button %3")
        .arg(m_title, m_prompt)
        .arg(int(m_press), 0, 16);
}

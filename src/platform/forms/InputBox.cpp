#include "InputBox.h"

#include "Named.h"
#include "Paths.h"
#include "PromptOwner.h"
#include "ShowDialog.h"
#include "ShownText.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

constexpr int charactersWide = 50;

class InputDialog : public QDialog
{
public:
    InputDialog(const QString &prompt, const QString &text, QWidget *owner);

    QString text() const { return m_text->text(); }

private:
    QLabel *buildPrompt(const QString &prompt);
    QDialogButtonBox *buildButtons();

    QLineEdit *m_text;
};

InputDialog::InputDialog(const QString &prompt, const QString &text, QWidget *owner)
    : QDialog(owner)
    , m_text(named("txtAnswer", new QLineEdit(text), ShownText::line(prompt)))
{
    m_text->selectAll();
    m_text->setMinimumWidth(charactersWide * fontMetrics().averageCharWidth());
    auto *column = new QVBoxLayout(this);
    column->addWidget(buildPrompt(prompt));
    column->addWidget(m_text);
    column->addWidget(buildButtons());
    m_text->setFocus();
}

QLabel *InputDialog::buildPrompt(const QString &prompt)
{
    auto *label = named("lblPrompt", new QLabel(ShownText::lines(prompt)));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum); // a name of 255 letters is cut
    return label;
}

QDialogButtonBox *InputDialog::buildButtons()
{
    auto *buttons = named("buttons", new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

} // namespace

QString InputBox(const QString &prompt, const QString &title, const QString &text)
{
    const auto box = std::make_unique<InputDialog>(prompt, text, promptOwner());
    box->setObjectName(QStringLiteral("InputBox"));
    box->setWindowTitle(ShownText::line(title.isEmpty() ? Paths::applicationTitle : title));
    return showDialog(*box) == QDialog::Accepted ? box->text() : QString();
}

#include "DialogDriver.h"

#include "Form.h"
#include "RuntimeError.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

/// Code that asks again until it gets an answer would ask for ever.
constexpr int patience = 20;

/// Closes \a window in any case: by No where it has that button, else by cancelling it.
void dismiss(QWidget &window)
{
    if (auto *box = qobject_cast<QMessageBox *>(&window)) {
        QAbstractButton *no = box->button(QMessageBox::No);
        no ? no->click() : box->reject();
    } else if (auto *dialog = qobject_cast<QDialog *>(&window)) {
        dialog->reject();
    } else if (auto *form = dynamic_cast<Form *>(&window)) {
        if (!form->unload())
            form->deleteLater();
    } else {
        window.hide();
    }
}

} // namespace

DialogDriver::DialogDriver()
{
    QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { look(); });
    m_poll.start(5);
}

DialogDriver::~DialogDriver()
{
    for (std::size_t i = m_answered; i < m_steps.size(); ++i)
        ADD_FAILURE() << "never came up: " << qUtf8Printable(m_steps[i]->describe());
}

BoxStep &DialogDriver::expectBox(const QString &title, const QString &text)
{
    return add(std::make_unique<BoxStep>(title, text));
}

InputStep &DialogDriver::expectInput(const QString &title, const QString &prompt)
{
    return add(std::make_unique<InputStep>(title, prompt));
}

FileDialogStep &DialogDriver::expectFileDialog(const QString &title)
{
    return add(std::make_unique<FileDialogStep>(title));
}

void DialogDriver::look()
{
    QWidget *window = QApplication::activeModalWidget();
    if (!window || !window->isVisible() || m_busy.contains(window))
        return;
    m_seen.append(SeenDialog::of(*window));
    m_busy.append(window);
    QObject::connect(window, &QObject::destroyed, &m_poll, [this, window] { m_busy.removeOne(window); });

    // A timer does not fire again inside its own handler, and an answer may open the next dialog: so the
    // answer runs from a timer of its own.
    const bool expected = m_next < m_steps.size() && m_steps[m_next]->matches(*window);
    const std::size_t step = expected ? m_next++ : m_steps.size();
    QTimer::singleShot(0, &m_poll, [this, step, guard = QPointer<QWidget>(window)] {
        if (guard)
            answer(*guard, step);
    });
}

void DialogDriver::answer(QWidget &window, std::size_t step)
{
    const QPointer<QWidget> guard(&window);
    if (step < m_steps.size())
        follow(window, *m_steps[step]);
    else
        refuse(window);
    if (guard)
        m_busy.removeOne(&window);
}

void DialogDriver::follow(QWidget &window, const DialogStep &step)
{
    ++m_answered;
    try {
        step.answer(window);
    } catch (const RuntimeError &error) {
        ADD_FAILURE() << qUtf8Printable(step.describe()) << " threw " << error.what();
    }
}

void DialogDriver::leaveWhatComes()
{
    m_leavesWhatComes = true;
}

void DialogDriver::refuse(QWidget &window)
{
    if (m_leavesWhatComes) {
        dismiss(window);
        return;
    }
    ADD_FAILURE() << "unexpected: " << qUtf8Printable(SeenDialog::of(window).describe())
                  << "\nexpected: " << qUtf8Printable(nextStep());
    if (++m_refused > patience) {
        ADD_FAILURE() << "the same question comes for ever";
        std::_Exit(EXIT_FAILURE);
    }
    dismiss(window);
}

QString DialogDriver::nextStep() const
{
    return m_next < m_steps.size() ? m_steps[m_next]->describe() : QStringLiteral("nothing");
}

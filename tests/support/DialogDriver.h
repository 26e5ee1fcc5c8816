#pragma once

#include "BoxStep.h"
#include "FileDialogStep.h"
#include "InputStep.h"
#include "SeenDialog.h"
#include "WindowStep.h"

#include <QTimer>
#include <memory>
#include <vector>

/// Answers the real dialogs that a test provokes, in the order of the steps. A modal window that no
/// step expects fails the test and is closed by No or by cancelling it; so does a step that no window came up
/// for, when the driver is deleted.
///
///     DialogDriver dialogs;
///     dialogs.expectBox("Save Changes?...", "Save Changes to Document 1").press(QMessageBox::No);
class DialogDriver
{
public:
    DialogDriver();
    ~DialogDriver();
    DialogDriver(const DialogDriver &) = delete;
    DialogDriver &operator=(const DialogDriver &) = delete;

    BoxStep &expectBox(const QString &title, const QString &text);
    InputStep &expectInput(const QString &title, const QString &prompt);
    FileDialogStep &expectFileDialog(const QString &title);
    /// A modal window of class \a Window with the objectName \a name. \a act may open further dialogs; a
    /// window that is still open behind it has to be answered by the next step.
    template<class Window>
    void expectWindow(const QString &name, std::function<void(Window &)> act);

    /// From now on a window that no step expects is closed in the same way and fails nothing.
    void leaveWhatComes();

    /// Every modal window so far, expected or not.
    const QList<SeenDialog> &seen() const { return m_seen; }

private:
    void look();
    void answer(QWidget &window, std::size_t step);
    void follow(QWidget &window, const DialogStep &step);
    void refuse(QWidget &window);
    QString nextStep() const;

    template<class Step>
    Step &add(std::unique_ptr<Step> step);

    QTimer m_poll;
    std::vector<std::unique_ptr<DialogStep>> m_steps;
    std::size_t m_next = 0;     ///< the step that waits
    std::size_t m_answered = 0; ///< how many steps have run
    int m_refused = 0;
    bool m_leavesWhatComes = false;
    QList<const QWidget *> m_busy; ///< windows whose step is about to run, or runs
    QList<SeenDialog> m_seen;
};

template<class Step>
Step &DialogDriver::add(std::unique_ptr<Step> step)
{
    Step &added = *step;
    m_steps.push_back(std::move(step));
    return added;
}

template<class Window>
void DialogDriver::expectWindow(const QString &name, std::function<void(Window &)> act)
{
    add(std::make_unique<WindowStep<Window>>(name, std::move(act)));
}

#pragma once

#include "RuntimeError.h"

#include <QHash>
#include <QWidget>
#include <functional>

class QPushButton;

/// A window of the suite: loaded once, shown, and unloaded through its own questions. While it is loaded it
/// stands in Forms. How a window of the frame is placed there is told by ChildForm, not here.
class Form : public QWidget
{
public:
    /// \a name is the window's class name and becomes its objectName.
    explicit Form(const QString &name);
    ~Form() override;

    QString Name() const { return objectName(); }
    QString Caption() const { return windowTitle(); }
    void setCaption(const QString &caption) { setWindowTitle(caption); }

    /// Runs Form_Load unless the window is loaded already. What the load throws reaches the caller; the
    /// window then stays loaded.
    void load();
    bool isLoaded() const { return m_state == State::Loaded; }

    /// Loads and shows without waiting; a window that is open already comes to the front.
    virtual void showModeless();

    /// Loads, shows above \a owner (none: above all) and returns when the window has been unloaded.
    void showModal(QWidget *owner);

    /// Asks Form_QueryUnload; unless that keeps the window, runs Form_Unload, takes the window out of Forms,
    /// runs Form_Terminate and closes it. The object is deleted once events are run again. Returns false when
    /// the window stays.
    bool unload();

    /// The control \a name of this window. Throws RuntimeError 438 when there is none of this kind.
    template<class Control>
    Control &member(const QString &name) const;
    bool hasMember(const QString &name) const;

    /// Runs the public operation \a name of this window. Throws RuntimeError 438 when it has none.
    void call(const QString &name);

protected:
    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    /// Returns false to keep the window open.
    virtual bool Form_QueryUnload() { return true; }
    virtual void Form_Unload() {}
    /// The window is out of Forms when this runs.
    virtual void Form_Terminate() {}

    /// Takes the window off the screen, once it has been unloaded.
    virtual void dispose();

    /// Lets other windows reach \a operation by name.
    void addOperation(const QString &name, std::function<void()> operation);

    /// Return presses \a accept and Escape presses \a cancel, wherever in the window the focus is.
    void setKeyButtons(QPushButton &accept, QPushButton &cancel);

    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum class State { New, Loaded, Unloading, Unloaded };

    bool finish();

    State m_state = State::New;
    QPushButton *m_accept = nullptr;
    QPushButton *m_cancel = nullptr;
    QHash<QString, std::function<void()>> m_operations;
};

template<class Control>
Control &Form::member(const QString &name) const
{
    if (auto *control = findChild<Control *>(name))
        return *control;
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, name);
}

#pragma once

#include "FormState.h"
#include "HasMetaObject.h"
#include "RuntimeError.h"

#include <QEventLoop>
#include <QHash>
#include <QPointer>
#include <QWidget>
#include <any>
#include <functional>

class QPushButton;

/// A window of the suite: loaded once, shown, and unloaded through its own questions. While it is loaded it
/// is in Forms. Its object is deleted only when every handler has returned, so a handler that waits may be
/// unloaded meanwhile; where that matters it asks isLoaded() afterwards.
///
/// ChildForm places a window in the frame.
class Form : public QWidget
{
    Q_OBJECT

public:
    /// \a name is the window's class name and becomes its objectName.
    explicit Form(const QString &name);
    ~Form() override;

    QString Name() const { return objectName(); }
    QString Caption() const { return windowTitle(); }
    void setCaption(const QString &caption) { setWindowTitle(caption); }

    // Place and outer size in twips: a child's in the child area with its title bar, another window's on the
    // screen without what the window manager puts around it.
    double Left() const;
    double Top() const;
    double Width() const;
    double Height() const;
    void setLeft(double twips);
    void setTop(double twips);
    void setWidth(double twips);
    void setHeight(double twips);

    // The inner size in twips, which the controls have.
    double ScaleWidth() const;
    double ScaleHeight() const;

    FormState WindowState() const;
    void setWindowState(FormState state);

    /// Runs Form_Load unless the window is loaded already. What the load throws reaches the caller; the
    /// window is then out of Forms without its unload, so that the next reference makes a new one.
    void load();
    bool isLoaded() const { return m_state == State::Loaded; }

    /// Loads and shows without waiting; a window that is open already comes to the front.
    virtual void showModeless();

    /// Loads, shows above \a owner (none: above all) and returns when the window has been unloaded or hidden.
    /// The caller reads the answer from the window's members: its object exists until the caller has
    /// returned to the event loop. Throws RuntimeError 5 for a window of the child area.
    void showModal(QWidget *owner);

    /// Asks Form_QueryUnload; unless that keeps the window, runs Form_Unload, takes the window out of Forms,
    /// runs Form_Terminate and closes it. Returns false when the window stays.
    bool unload();

    /// The control \a name of this window. Throws RuntimeError 438 when there is none of this kind.
    template<HasMetaObject Control>
    Control &member(const QString &name) const;
    bool hasMember(const QString &name) const;

    /// Runs the public operation \a name of this window. Throws RuntimeError 438 when it has none, or none
    /// with arguments of these types.
    template<class... Args>
    void call(const QString &name, const Args &...args);

protected:
    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    /// Returns false to keep the window open.
    virtual bool Form_QueryUnload() { return true; }
    virtual void Form_Unload() {}
    /// The window is out of Forms when this runs.
    virtual void Form_Terminate() {}

    /// Puts the window where it will be shown; runs once, before Form_Load, which may set place and size.
    virtual void takePlace() {}
    /// Takes the window off the screen, once it has been unloaded.
    virtual void dispose();
    /// What is moved and sized on the screen.
    virtual const QWidget &outerWindow() const { return *this; }
    virtual bool canBeModal() const { return true; }

    /// Lets other windows reach \a operation, a member function of this window, by name.
    template<class Window, class... Params>
    void addOperation(const QString &name, void (Window::*operation)(Params...));

    /// Return presses \a accept and Escape presses \a cancel, wherever in the window the focus is; but Return
    /// presses a button that has the focus itself.
    void setKeyButtons(QPushButton &accept, QPushButton &cancel);
    /// The same for a window in which Return accepts nothing.
    void setCancelButton(QPushButton &cancel) { m_cancel = &cancel; }
    /// Return presses \a button while \a field has the focus. The key ends there. A handler of the field's
    /// own signal would let it go on, after a wait to whatever has the focus by then.
    void setReturnButton(const QWidget &field, QPushButton &button) { m_returnButtons[&field] = &button; }

    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum class State { New, Loaded, Unloading, Unloaded };

    bool finish();
    void forget();
    void leaveModalLoop();
    bool pressKeyButton(int key);
    QPushButton *returnButton() const;
    QWidget &outerWindow();

    State m_state = State::New;
    QPointer<QEventLoop> m_modalLoop; ///< while showModal() waits
    QPushButton *m_accept = nullptr;
    QPushButton *m_cancel = nullptr;
    QHash<const QWidget *, QPushButton *> m_returnButtons; ///< by field
    QHash<QString, std::any> m_operations;                 ///< each a std::function<void(values...)>
};

template<HasMetaObject Control>
Control &Form::member(const QString &name) const
{
    if (auto *control = findChild<Control *>(name))
        return *control;
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, name);
}

template<class... Args>
void Form::call(const QString &name, const Args &...args)
{
    const std::any held = m_operations.value(name);
    const auto *operation = std::any_cast<std::function<void(Args...)>>(&held);
    if (!operation)
        throw RuntimeError(ErrorNumber::NoSuchMember, {}, name);
    (*operation)(args...);
}

template<class Window, class... Params>
void Form::addOperation(const QString &name, void (Window::*operation)(Params...))
{
    auto *window = static_cast<Window *>(this);
    m_operations.insert(name, std::function<void(std::decay_t<Params>...)>(
                                  [window, operation](const std::decay_t<Params> &...args) {
                                      (window->*operation)(args...);
                                  }));
}

#include "Form.h"

#include "EventGate.h"
#include "Forms.h"
#include "Twips.h"
#include "WindowGeometry.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

Form::Form(const QString &name)
{
    setObjectName(name);
}

Form::~Form()
{
    Forms::remove(*this);
    leaveModalLoop();
}

// ---- Place and size

QWidget &Form::outerWindow()
{
    return const_cast<QWidget &>(std::as_const(*this).outerWindow());
}

double Form::Left() const
{
    return WindowGeometry::left(outerWindow());
}

double Form::Top() const
{
    return WindowGeometry::top(outerWindow());
}

double Form::Width() const
{
    return WindowGeometry::width(outerWindow());
}

double Form::Height() const
{
    return WindowGeometry::height(outerWindow());
}

void Form::setLeft(double twips)
{
    WindowGeometry::setLeft(outerWindow(), twips);
}

void Form::setTop(double twips)
{
    WindowGeometry::setTop(outerWindow(), twips);
}

void Form::setWidth(double twips)
{
    WindowGeometry::setWidth(outerWindow(), twips);
}

void Form::setHeight(double twips)
{
    WindowGeometry::setHeight(outerWindow(), twips);
}

double Form::ScaleWidth() const
{
    return Twips::fromPixels(width(), logicalDpiX());
}

double Form::ScaleHeight() const
{
    return Twips::fromPixels(height(), logicalDpiY());
}

FormState Form::WindowState() const
{
    return WindowGeometry::state(outerWindow());
}

void Form::setWindowState(FormState state)
{
    WindowGeometry::setState(outerWindow(), state);
}

// ---- Life

void Form::load()
{
    if (m_state != State::New)
        return;
    m_state = State::Loaded;
    Forms::add(*this);
    takePlace();
    try {
        Form_Load();
    } catch (...) {
        forget();
        dispose();
        throw;
    }
}

void Form::showModeless()
{
    load();
    if (!isLoaded())
        return; // its load has unloaded it
    showNormal();
    raise();
    activateWindow();
}

void Form::showModal(QWidget *owner)
{
    if (!canBeModal())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, {}, Name());
    const RunningHandler running; // so that the object is not deleted before the loop returns
    setParent(owner, (windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
    setWindowModality(Qt::ApplicationModal);
    load();
    if (!isLoaded())
        return;
    QEventLoop loop;
    m_modalLoop = &loop;
    show();
    loop.exec();
}

/// Runs when the window is hidden, which an unload does too, and when it is deleted with its owner.
void Form::leaveModalLoop()
{
    if (m_modalLoop)
        m_modalLoop->quit();
}

bool Form::unload()
{
    if (m_state == State::Unloading || m_state == State::Unloaded)
        return true;
    if (!finish())
        return false;
    dispose();
    return true;
}

bool Form::finish()
{
    m_state = State::Unloading;
    try {
        if (!Form_QueryUnload()) {
            m_state = State::Loaded;
            return false;
        }
        Form_Unload();
    } catch (...) {
        m_state = State::Loaded;
        throw;
    }
    forget();
    Form_Terminate();
    return true;
}

void Form::forget()
{
    m_state = State::Unloaded;
    Forms::remove(*this);
    RunningHandler::deleteWhenNoneRuns(this);
}

void Form::dispose()
{
    close();
}

bool Form::hasMember(const QString &name) const
{
    return findChild<QObject *>(name) != nullptr;
}

void Form::setKeyButtons(QPushButton &accept, QPushButton &cancel)
{
    accept.setDefault(true);
    m_accept = &accept;
    m_cancel = &cancel;
}

bool Form::pressKeyButton(int key)
{
    QPushButton *button = nullptr;
    if (key == Qt::Key_Escape)
        button = m_cancel;
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        button = returnButton();
    if (button)
        button->click();
    return button;
}

QPushButton *Form::returnButton() const
{
    if (auto *focused = qobject_cast<QPushButton *>(focusWidget()))
        return focused;
    return m_returnButtons.value(focusWidget(), m_accept);
}

void Form::keyPressEvent(QKeyEvent *event)
{
    if (m_state == State::Unloaded)
        return; // its control's handler, which got the key first, has waited
    bool isPressed = false;
    run([&] { isPressed = pressKeyButton(event->key()); });
    if (!isPressed)
        QWidget::keyPressEvent(event);
}

void Form::closeEvent(QCloseEvent *event)
{
    event->ignore();
    run([&] { event->setAccepted(isLoaded() ? finish() : m_state != State::Unloading); });
}

void Form::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) // a minimised window still waits
        run([&] { leaveModalLoop(); });
}

void Form::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    run([&] {
        if (isLoaded())
            Form_Resize();
    });
}

#include "Form.h"

#include "EventGate.h"
#include "Forms.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>

Form::Form(const QString &name)
{
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
}

Form::~Form()
{
    Forms::remove(*this);
}

void Form::load()
{
    if (m_state != State::New)
        return;
    m_state = State::Loaded;
    Forms::add(*this);
    Form_Load();
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
    setParent(owner, (windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
    setWindowModality(Qt::ApplicationModal);
    load();
    if (!isLoaded())
        return;
    QEventLoop loop;
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    show();
    loop.exec();
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
    m_state = State::Unloaded;
    Forms::remove(*this);
    Form_Terminate();
    return true;
}

void Form::dispose()
{
    close();
}

bool Form::hasMember(const QString &name) const
{
    return findChild<QObject *>(name) != nullptr;
}

void Form::call(const QString &name)
{
    const auto operation = m_operations.constFind(name);
    if (operation == m_operations.constEnd())
        throw RuntimeError(ErrorNumber::NoSuchMember, {}, name);
    (*operation)();
}

void Form::addOperation(const QString &name, std::function<void()> operation)
{
    m_operations.insert(name, std::move(operation));
}

void Form::setKeyButtons(QPushButton &accept, QPushButton &cancel)
{
    accept.setDefault(true);
    m_accept = &accept;
    m_cancel = &cancel;
}

void Form::keyPressEvent(QKeyEvent *event)
{
    if (m_cancel && event->key() == Qt::Key_Escape)
        m_cancel->click();
    else if (m_accept && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        m_accept->click();
    else
        QWidget::keyPressEvent(event);
}

void Form::closeEvent(QCloseEvent *event)
{
    if (!isLoaded()) {
        event->setAccepted(m_state != State::Unloading);
        return;
    }
    event->ignore();
    run([&] { event->setAccepted(finish()); });
}

void Form::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    run([&] {
        if (isLoaded())
            Form_Resize();
    });
}

#pragma once

#include "FakeFrame.h"
#include "FileNames.h"
#include "Forms.h"
#include "ScratchFolder.h"
#include "ScratchProgramFolder.h"
#include "StatusBar.h"
#include "StatusBarPanel.h"

#include <QAbstractButton>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>

/// A window of the archiver in a frame, used by mouse and keyboard, with an empty folder for files. Boxes
/// have to be expected. The current folder is put back.
template<class Window>
class ArchiverWindow
{
public:
    ArchiverWindow();
    ~ArchiverWindow() { std::filesystem::current_path(m_currentFolder); }

    void open();
    /// Closes the window by its menu and lets it go.
    void close();
    /// As when the frame closes, which closes its children.
    void closeInFrame() const { m_form->parentWidget()->close(); }
    bool isOpen() const { return !m_form.isNull(); }
    Window &form() const { return *m_form; }

    void click(const char *name) const;
    void choose(const char *item) const { this->item(item).trigger(); }
    QAction &item(const char *name) const { return control<QAction>(name); }
    /// The items of a menu, as "name caption", "-" for a separator.
    QStringList items(int menu) const;
    bool isEnabled(const char *name) const { return control<QWidget>(name).isEnabled(); }
    QString status() const
    {
        return static_cast<const StatusBar &>(control<QStatusBar>("sbrMain")).Panels(1).Text();
    }

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->template member<Control>(QString::fromLatin1(name));
    }

    /// The path of a file of the scratch folder.
    QString path(const QByteArray &name) const { return FileNames::fromBytes(scratch.file(name)); }

    static void settle();

    ScratchProgramFolder programFolder;
    ScratchFolder scratch;
    FakeFrame frame;

private:
    std::filesystem::path m_currentFolder = std::filesystem::current_path();
    QPointer<Window> m_form;
};

template<class Window>
ArchiverWindow<Window>::ArchiverWindow()
{
    Forms::registerWindow(QString::fromLatin1(Window::staticMetaObject.className()), Forms::Instances::One,
                          [] { return new Window; });
    open();
}

template<class Window>
void ArchiverWindow<Window>::open()
{
    auto &window = Forms::refer<Window>();
    window.showModeless();
    m_form = &window;
}

template<class Window>
void ArchiverWindow<Window>::close()
{
    choose("mnuClose");
    settle();
}

template<class Window>
void ArchiverWindow<Window>::settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

template<class Window>
void ArchiverWindow<Window>::click(const char *name) const
{
    auto &button = control<QAbstractButton>(name);
    EXPECT_TRUE(button.isEnabled()) << name;
    button.click();
}

template<class Window>
QStringList ArchiverWindow<Window>::items(int menu) const
{
    QStringList items;
    for (const QAction *item : m_form->menus().at(menu)->actions())
        items << (item->isSeparator() ? QStringLiteral("-") : item->objectName() + u' ' + item->text());
    return items;
}

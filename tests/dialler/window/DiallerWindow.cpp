#include "DiallerWindow.h"

#include "Beep.h"
#include "Files.h"
#include "Forms.h"
#include "Globals.h"
#include "ListBox.h"
#include "Pause.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

const QString windowName = QStringLiteral("frmdialler");

} // namespace

DiallerWindow::DiallerWindow()
{
    service.lines = {{QStringLiteral("first")}, {QStringLiteral("second")}};
    putFile(" 0 \r\n");
    Forms::registerWindow(windowName, Forms::Instances::One, [this] {
        auto *form = new frmdialler(hasOwnLines ? nullptr : &service);
        m_form = form;
        return form;
    });
    setPause([this](int milliseconds) {
        pauses.append(milliseconds);
        if (duringPause)
            duringPause();
    });
    setBeep([this] { ++beeps; });
}

DiallerWindow::~DiallerWindow()
{
    if (isOpen())
        m_form->unload();
    setPause({});
    setBeep({});
    Forms::unregisterWindow(windowName);
}

void DiallerWindow::open(const char *mode)
{
    diallerMode = QString::fromLatin1(mode);
    Forms::refer(windowName).showModeless();
}

bool DiallerWindow::isGone() const
{
    return QTest::qWaitFor([this] { return m_form.isNull(); });
}

QPushButton &DiallerWindow::button(const QByteArray &name) const
{
    return control<QPushButton>(name.constData());
}

QAction &DiallerWindow::item(const char *name) const
{
    return control<QAction>(name);
}

void DiallerWindow::press(const QByteArray &name) const
{
    QTest::mouseClick(&button(name), Qt::LeftButton);
}

void DiallerWindow::type(const QString &number) const
{
    auto &field = control<QLineEdit>("txtPhoneNumber");
    QTest::mouseClick(&field, Qt::LeftButton);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, number);
}

QString DiallerWindow::number() const
{
    return control<QLineEdit>("txtPhoneNumber").text();
}

void DiallerWindow::chooseLine(int row) const
{
    auto &lines = control<QComboBox>("cboLineSel");
    lines.showPopup();
    QAbstractItemView *list = lines.view();
    list->setCurrentIndex(list->model()->index(row, 0));
    QTest::keyClick(list, Qt::Key_Return);
}

QStringList DiallerWindow::lineRows() const
{
    const auto &lines = control<QComboBox>("cboLineSel");
    QStringList rows;
    for (int row = 0; row < lines.count(); ++row)
        rows.append(lines.itemText(row));
    return rows;
}

QStringList DiallerWindow::rows(const char *name) const
{
    const auto &list = control<ListBox>(name);
    QStringList rows;
    for (int row = 0; row < list.ListCount(); ++row)
        rows.append(list.List(row));
    return rows;
}

bool DiallerWindow::canDial() const
{
    EXPECT_EQ(button("cmdDial").isEnabled(), item("mnudial").isEnabled());
    return button("cmdDial").isEnabled();
}

bool DiallerWindow::canHangUp() const
{
    return button("cmdHangUp").isEnabled();
}

QByteArray DiallerWindow::file() const
{
    return Files::read(folder.path() + QStringLiteral("/dialler.dat"));
}

#include "CalculatorWindow.h"

#include "Forms.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

const QString windowName = QStringLiteral("frmCalculator");

void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace

CalculatorWindow::CalculatorWindow()
{
    Forms::registerWindow(windowName, Forms::Instances::One, [] { return new frmCalculator; });
    open();
}

void CalculatorWindow::open()
{
    Form &form = Forms::refer(windowName);
    form.showModeless();
    m_form = static_cast<frmCalculator *>(&form);
}

void CalculatorWindow::closeBy(const char *name)
{
    if (auto *button = m_form->findChild<QPushButton *>(QString::fromLatin1(name)))
        QTest::mouseClick(button, Qt::LeftButton);
    else
        m_form->findChild<QAction *>(QString::fromLatin1(name))->trigger();
    settle();
}

QString CalculatorWindow::field() const
{
    return control<QLineEdit>("txtresult").text();
}

void CalculatorWindow::perform(const QString &keys)
{
    for (const CalculatorStep &step : CalculatorStep::parse(keys))
        perform(step);
}

void CalculatorWindow::perform(const CalculatorStep &step)
{
    switch (step.kind) {
    case CalculatorStep::Digit:
        click("cmddigit", step.index);
        break;
    case CalculatorStep::Point:
        click("cmddecimal", -1);
        break;
    case CalculatorStep::Action:
        click("cmdaction", step.index);
        break;
    case CalculatorStep::Type:
        type(step.text);
        break;
    case CalculatorStep::Decimals:
        chooseRow(step.index);
        break;
    case CalculatorStep::Option:
        chooseOption(step.index);
        break;
    }
}

void CalculatorWindow::click(const char *array, int index)
{
    QTest::mouseClick(&control<QPushButton>(array, index), Qt::LeftButton);
}

void CalculatorWindow::type(const QString &text)
{
    auto &field = control<QLineEdit>("txtresult");
    QTest::mouseClick(&field, Qt::LeftButton);
    QTest::keySequence(&field, QKeySequence::SelectAll);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
}

void CalculatorWindow::chooseRow(int row)
{
    auto &list = control<QListWidget>("listDecimals");
    list.scrollToItem(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
}

void CalculatorWindow::chooseOption(int index)
{
    auto &option = control<QRadioButton>("Option1", index);
    QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(option.height() / 2, option.height() / 2));
}

void CalculatorWindow::expectReports(const QStringList &reported)
{
    for (const QString &what : reported) {
        if (what == QLatin1String("point"))
            frame.dialogs
                .expectBox(QStringLiteral("Decimal Point entry not accepted."),
                           QStringLiteral("You cannot have two decimal points in one number!"))
                .icon(QMessageBox::Information)
                .buttons(QMessageBox::Ok);
        else if (what == QLatin1String("thrown 6"))
            frame.dialogs.expectBox(QStringLiteral("System Error!"),
                                    QStringLiteral("An error has occurred - Code: 6 Description: Overflow"));
        else
            frame.dialogs
                .expectBox(QStringLiteral("Calculation error..."),
                           what == QLatin1String("error 11")
                               ? QStringLiteral("An error has occurred, Error Number: 11 : Division by zero")
                               : QStringLiteral("An error has occurred, Error Number: 6 : Overflow"))
                .icon(QMessageBox::Critical)
                .buttons(QMessageBox::Ok);
    }
}

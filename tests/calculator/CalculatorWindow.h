#pragma once

#include "CalculatorStep.h"
#include "FakeFrame.h"
#include "frmCalculator.h"

#include <QPointer>

/// The calculator's window in a frame, used by mouse and keyboard. Boxes have to be expected.
class CalculatorWindow
{
public:
    CalculatorWindow();

    void open();
    /// Closes the window by \a control or item and lets it go.
    void closeBy(const char *name);

    frmCalculator &form() const { return *m_form; }
    bool isOpen() const { return !m_form.isNull(); }
    QString field() const;

    void perform(const CalculatorStep &step);
    void perform(const QString &keys);

    /// Expects the boxes for \a reported, as BareCalculator keeps it, in this order.
    void expectReports(const QStringList &reported);

    template<class Control>
    Control &control(const char *name, int index = -1) const;

    FakeFrame frame;

private:
    void click(const char *array, int index);
    void type(const QString &text);
    void chooseRow(int row);
    void chooseOption(int index);

    QPointer<frmCalculator> m_form;
};

template<class Control>
Control &CalculatorWindow::control(const char *name, int index) const
{
    QString full = QString::fromLatin1(name);
    if (index >= 0)
        full += QStringLiteral("_%1").arg(index);
    return m_form->member<Control>(full);
}

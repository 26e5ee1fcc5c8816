#pragma once

#include "Calculator.h"
#include "CalculatorDisplay.h"
#include "ChildForm.h"

#include <array>

class ControlName;
class QFrame;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

/// The calculator's window: one field, its keys and the choice of rounding. Nothing is stored.
class frmCalculator : public ChildForm, private CalculatorDisplay
{
    Q_OBJECT

public:
    frmCalculator();

    QList<QMenu *> menus() const override { return m_menus; }
    QSize sizeHint() const override;

protected:
    void Form_Load() override;

private:
    void cmddigit_Click(int index);
    void cmddecimal_Click();
    void cmdaction_Click(int index);
    void listDecimals_Click();
    void Option1_Click();
    void OKButton_Click();

    QString text() const override;
    void setText(const QString &text) override;
    void showSecondPointBox() override;
    void showCalculationErrorBox(const RuntimeError &error) override;

    static QPushButton *key(const ControlName &name, const QString &caption, const QString &spoken);
    static QFrame *frame(const char *name, const QString &spoken);
    void buildField();
    void buildKeys();
    void buildRounding();
    QFrame *layOutDigits();
    QFrame *layOutActions();
    QFrame *layOutRounding();
    void layOut();
    void orderTabs();
    void bind();

    QLineEdit *txtresult;
    std::array<QPushButton *, 10> cmddigit;
    QPushButton *cmddecimal;
    std::array<QPushButton *, 7> cmdaction;
    QListWidget *listDecimals;
    std::array<QRadioButton *, 2> Option1;
    QPushButton *OKButton;

    QList<QMenu *> m_menus;
    Calculator m_calculator;
};

#pragma once

#include "Form.h"

#include <QStringList>

/// A window that records the steps of its life time and fails or refuses where a test asks it to.
class ProbeForm : public Form
{
    Q_OBJECT

public:
    explicit ProbeForm(QStringList &steps, const QString &name = QStringLiteral("frmProbe"));
    ~ProbeForm() override { m_steps << QStringLiteral("deleted"); }

    using Form::addOperation;
    using Form::setKeyButtons;
    using Form::setReturnButton;

    // Operations for other windows.
    void mnuSave_Click() { m_steps << QStringLiteral("saved"); }
    void AutoDial(const QString &number, int mode)
    {
        m_steps << QStringLiteral("dialled %1 by %2").arg(number, QString::number(mode));
    }
    void fail() { throw RuntimeError(ErrorNumber::DiskFull); }

    std::function<void()> onLoad = [] {};
    std::function<bool()> onQueryUnload = [] { return true; };
    std::function<void()> onUnload = [] {};
    std::function<void()> onTerminate = [] {};
    std::function<void()> onResize = [] {};
    std::function<void()> onKey = [] {}; ///< empty for what a window does with its keys

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_QueryUnload() override;
    void Form_Unload() override;
    void Form_Terminate() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QStringList &m_steps;
};

#pragma once

#include "ChildForm.h"
#include "DiallerDialogs.h"
#include "TelephoneService.h"

#include <array>
#include <memory>

class CvbTAPILine;
class ListBox;
class QAction;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QVBoxLayout;
class WindowIcons;

/// The dialler's window. In the mode "Setup" the user chooses a telephone line, sees what it is able to do
/// and tries a call; in the mode "Use" the window is the keypad of a telephone. The call itself is
/// CvbTAPILine's.
class frmdialler : public ChildForm
{
    Q_OBJECT

public:
    /// A \a service, for tests, takes the place of this computer's lines; it has to exist longer than the
    /// window.
    explicit frmdialler(LineService *service = nullptr);
    ~frmdialler() override;

    QList<QMenu *> menus() const override { return m_menus; }

protected:
    void takePlace() override;
    /// Takes seconds, in which the suite does not answer; the window is seen meanwhile. Throws RuntimeError
    /// where dialler.dat cannot be read and where it names a line that is not there.
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Terminate() override;

private:
    void cmddigit_Click(int index);
    void cmddecimal_Click(int index);
    void cmdDial_Click();
    void cmdHangUp_Click();
    void cmdExit_Click();
    void cmdConfigDlg_Click();
    void cmdDialProps_Click();
    void cboLineSel_Click();
    void tapiline_MakeCallResult(qint32 ErrorCode);
    void tapiline_DropCallResult(qint32 ErrorCode);
    void tapiline_Connected();
    void tapiline_Disconnected();
    void tapiline_Idle();

    void makeLine();
    bool negotiate();
    QStringList usableLines();
    void selectLine(int position);
    void refreshLines();
    void keepSavedPosition();
    void checkLine();
    void press(const QString &sign);
    void log(const QString &row);
    void logEvent(const QString &row);
    void announce(const QString &row);
    void setDialEnabled(bool enabled);
    void setHangUpEnabled(bool enabled);
    QString lastErrorNumber() const;
    QString lastErrorText() const;

    void shape();
    void buildKeypad();
    void buildFields();
    QLayout *layOutLine();
    QLayout *layOutPhone();
    QLayout *layOutKeypad();
    QLayout *layOutProgress();
    QLayout *layOutFoot();
    void layOut();
    void orderTabs();
    void bind();

    WindowIcons *m_icons;
    QLabel *lblLineSel;
    QComboBox *cboLineSel;
    QPushButton *cmdConfigDlg;
    QPushButton *cmdDialProps;
    ListBox *lstLineInfo;
    QLineEdit *txtPhoneNumber;
    std::array<QPushButton *, 10> cmddigit;
    std::array<QPushButton *, 4> cmddecimal;
    QPushButton *cmdDial;
    QPushButton *cmdHangUp;
    ListBox *lstCallProgress;
    QLabel *Label1;
    QPushButton *cmdExit;
    QVBoxLayout *m_rows;
    QList<QMenu *> m_menus;
    QAction *mnudial;
    QAction *mnuhangup;
    bool m_isSetup = false;     ///< the mode that it was loaded in
    bool m_hasFailed = false;   ///< the last call was refused
    bool m_maybeEdited = false; ///< the lines, in their dialog
    bool Unloading = false;
    QString m_number; ///< of the call, without what is typed later

    DiallerDialogs m_dialogs;
    std::unique_ptr<TelephoneService> m_ownService; ///< none in tests that have one
    LineService &m_service;
    std::unique_ptr<CvbTAPILine> tapiline; ///< from the load on
};

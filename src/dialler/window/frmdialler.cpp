#include "frmdialler.h"

#include "Ask.h"
#include "Beep.h"
#include "CvbTAPILine.h"
#include "DiallerFile.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "Globals.h"
#include "LineReport.h"
#include "ListBox.h"
#include "Paths.h"
#include "Pause.h"
#include "ShownText.h"
#include "WaitCursor.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr quint32 lowestVersion = 0x10003;
constexpr quint32 highestVersion = 0x30000;
constexpr quint32 olderVersion = 0x10004; // the highest of the second attempt
constexpr quint32 noPrivilege = 1;
constexpr quint32 interactiveVoice = 4;

const QString lineEnd = QStringLiteral("\r\n");

QStringList rowsOf(const QComboBox &list)
{
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows.append(list.itemText(row));
    return rows;
}

} // namespace

/// The mode decides how large the window is.
void frmdialler::takePlace()
{
    m_isSetup = diallerMode == QLatin1String("Setup");
    shape();
    ChildForm::takePlace();
}

void frmdialler::Form_Load()
{
    Unloading = false;
    const qint32 savedPosition = DiallerFile::read();
    cmdHangUp->setEnabled(false); // Intended: the menu's item is not disabled before the first call
    txtPhoneNumber->selectAll();
    showModeless();
    const WaitCursor waiting; // also over the boxes about the chosen line
    makeLine();
    if (!negotiate()) {
        announce(QStringLiteral("Failed to negotiate TAPI version! <Critical Error!>"));
        return;
    }
    cboLineSel->addItems(usableLines());
    selectLine(savedPosition);
}

void frmdialler::makeLine()
{
    tapiline = std::make_unique<CvbTAPILine>(m_service);
    on(tapiline.get(), &CvbTAPILine::MakeCallResult, this, &frmdialler::tapiline_MakeCallResult);
    on(tapiline.get(), &CvbTAPILine::DropCallResult, this, &frmdialler::tapiline_DropCallResult);
    on(tapiline.get(), &CvbTAPILine::Connected, this, &frmdialler::tapiline_Connected);
    on(tapiline.get(), &CvbTAPILine::Disconnected, this, &frmdialler::tapiline_Disconnected);
    on(tapiline.get(), &CvbTAPILine::Idle, this, &frmdialler::tapiline_Idle);
}

/// The waits let no event run, so the window is painted before them.
bool frmdialler::negotiate()
{
    repaint();
    window()->repaint(); // what a menu has covered
    tapiline->setLowAPI(lowestVersion);
    tapiline->setHiAPI(highestVersion);
    announce(QStringLiteral("Negotiating TAPI version..."));
    Pause(1000, false);
    if (tapiline->Create())
        return true;
    announce(lastErrorText());
    Pause(500, false);
    announce(QStringLiteral("Trying TAPI 1.3 - 1.4..."));
    Pause(1000, false);
    tapiline->setLowAPI(lowestVersion);
    tapiline->setHiAPI(olderVersion);
    return tapiline->Create();
}

/// The rows of the list; the last line becomes the current one.
QStringList frmdialler::usableLines()
{
    QStringList rows;
    for (qint32 line = 0; line < tapiline->numLines(); ++line) {
        tapiline->setCurrentLineID(line);
        if (tapiline->NegotiatedAPIVersion() != 0)
            rows.append(QStringLiteral("%1: %2").arg(line).arg(LineReport::name(*tapiline)));
    }
    return rows;
}

/// -1 is no line. Throws RuntimeError 380 where the list has no such row.
void frmdialler::selectLine(int position)
{
    if (position < -1 || position >= cboLineSel->count())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    cboLineSel->setCurrentIndex(position);
    if (position >= 0)
        cboLineSel_Click();
}

void frmdialler::announce(const QString &row)
{
    lstLineInfo->AddItem(row);
    lstLineInfo->viewport()->repaint();
}

void frmdialler::cboLineSel_Click()
{
    m_hasFailed = false;
    lstLineInfo->Clear();
    if (cboLineSel->currentText().isEmpty()) {
        lstLineInfo->AddItem(QStringLiteral("<No Valid TAPI Line Selected>"));
    } else {
        // Intended: the position in the list, which is another number than the line's own as soon as a line
        // in front of it could not be used.
        tapiline->setCurrentLineID(cboLineSel->currentIndex());
        Label1->setText(ShownText::line(LineReport::name(*tapiline)));
        Label1->setToolTip(ShownText::toolTip(LineReport::name(*tapiline)));
        lstLineInfo->addItems(LineReport::rows(*tapiline));
    }
    checkLine();
}

void frmdialler::checkLine()
{
    const QString title = QStringLiteral("Modem Error!");
    const bool hasVoice = tapiline->LineSupportsVoiceCalls();
    if (!hasVoice)
        Ask(QStringLiteral("The line selected does not support Voice Calls!"), MsgBoxStyle::Critical, title);
    setDialEnabled(hasVoice);
    if (LineReport::isUnsuitable(*tapiline)) {
        Ask(QStringLiteral("The line selected is not suitable for Voice Calls in this program!"),
            MsgBoxStyle::Critical, title);
        setDialEnabled(false);
    }
}

void frmdialler::cmddigit_Click(int index)
{
    press(QString::number(index));
}

void frmdialler::cmddecimal_Click(int index)
{
    if (index == 3) {
        txtPhoneNumber->clear();
        Beep();
    } else {
        press(QStringLiteral("#*,").at(index));
    }
}

/// In a call the far end hears the key, too.
void frmdialler::press(const QString &sign)
{
    txtPhoneNumber->setText(txtPhoneNumber->text() + sign);
    Beep();
    const bool isConnected = cmdHangUp->isEnabled();
    if (isConnected && sign != QLatin1String(","))
        tapiline->GenerateDigits(sign);
}

void frmdialler::cmdConfigDlg_Click()
{
    if (!tapiline->ConfigDialog(this, {})) {
        Ask(lastErrorText());
        return;
    }
    m_maybeEdited = true;
    refreshLines();
}

/// Lists the lines anew where the user has changed them.
void frmdialler::refreshLines()
{
    if (!isLoaded())
        return;
    const qint32 current = tapiline->CurrentLineID();
    const int position = cboLineSel->currentIndex();
    const QStringList reportBefore = LineReport::rows(*tapiline);
    const QStringList rowsBefore = rowsOf(*cboLineSel);
    tapiline->Create();
    const QStringList rows = usableLines();
    if (current < tapiline->numLines())
        tapiline->setCurrentLineID(current);
    const bool isSame = rows == rowsBefore && LineReport::rows(*tapiline) == reportBefore;
    if (isSame && !m_hasFailed)
        return;
    cboLineSel->clear();
    cboLineSel->addItems(rows);
    cboLineSel->setCurrentIndex(qMin(qMax(position, 0), int(rows.size()) - 1));
    cboLineSel_Click();
    keepSavedPosition();
}

/// Where the user has removed the saved line, the saved position would fail each later load.
void frmdialler::keepSavedPosition()
{
    ignoreErrors([&] {
        const qint32 last = qMax(0, cboLineSel->count() - 1);
        if (DiallerFile::read() > last)
            DiallerFile::write(last);
    });
}

void frmdialler::cmdDialProps_Click()
{
    if (!tapiline->DialingPropertiesDialog(this, txtPhoneNumber->text()))
        Ask(lastErrorText());
}

void frmdialler::cmdExit_Click()
{
    if (m_isSetup)
        DiallerFile::write(tapiline->CurrentLineID());
    unload();
}

void frmdialler::cmdDial_Click()
{
    if (txtPhoneNumber->text().isEmpty()) {
        Ask(QStringLiteral("No phone number entered, please enter phone number!"), MsgBoxStyle::Information,
            QStringLiteral("Need a number to dial.."));
        return;
    }
    setDialEnabled(false);
    log(QStringLiteral("Opening line: #%1").arg(tapiline->CurrentLineID()));
    if (!tapiline->OpenLine(noPrivilege, interactiveVoice)) {
        Ask(QStringLiteral("TAPI ERROR ") + lineEnd + lastErrorText(), MsgBoxStyle::Critical,
            Paths::applicationTitle);
        setDialEnabled(true);
        return;
    }
    m_number = txtPhoneNumber->text();
    log(QStringLiteral("Preparing to dial: ") + m_number);
    if (tapiline->MakeCallAsynch(m_number))
        return;
    tapiline->CloseLine();
    Ask(lastErrorNumber(), MsgBoxStyle::Information, Paths::applicationTitle);
    setDialEnabled(true);
}

/// Intended: the second read finds the error cleared, so the text is always "Unknown Error".
QString frmdialler::lastErrorNumber() const
{
    const QString number = QString::number(tapiline->LastError());
    return QStringLiteral("Error #") + number + lineEnd + lastErrorText();
}

QString frmdialler::lastErrorText() const
{
    return tapiline->ErrorString(tapiline->LastError());
}

void frmdialler::cmdHangUp_Click()
{
    log(QStringLiteral("Requesting drop call..."));
    if (!tapiline->DropCallAsynch() && !Unloading)
        Ask(lastErrorNumber());
}

void frmdialler::tapiline_MakeCallResult(qint32 ErrorCode)
{
    if (ErrorCode == 0) {
        logEvent(QStringLiteral("Dialing: ") + m_number);
        return;
    }
    // Intended: dialling stays disabled until a line is chosen, or the lines have been edited.
    m_hasFailed = true;
    logEvent(QStringLiteral("Could not dial: ") + m_number);
    logEvent(QStringLiteral("Dial Error: ") + tapiline->ErrorString(ErrorCode));
}

void frmdialler::tapiline_Connected()
{
    setHangUpEnabled(true);
    logEvent(QStringLiteral("Connected"));
}

void frmdialler::tapiline_Disconnected()
{
    setHangUpEnabled(false);
    logEvent(QStringLiteral("Disconnected"));
}

void frmdialler::tapiline_Idle()
{
    setHangUpEnabled(false);
    setDialEnabled(true);
    logEvent(QStringLiteral("Idle"));
    if (std::exchange(m_maybeEdited, false)) // in the call, when the lines stay as they are
        refreshLines();
}

void frmdialler::tapiline_DropCallResult(qint32 ErrorCode)
{
    if (ErrorCode == 0)
        logEvent(QStringLiteral("Call Dropped: ") + m_number);
    else
        logEvent(QStringLiteral("Call Drop Error: ") + tapiline->ErrorString(ErrorCode));
}

void frmdialler::log(const QString &row)
{
    lstCallProgress->AddItem(row);
}

/// Intended: events alone scroll the log to their row.
void frmdialler::logEvent(const QString &row)
{
    log(row);
    lstCallProgress->setListIndex(lstCallProgress->ListCount() - 1);
}

void frmdialler::setDialEnabled(bool enabled)
{
    cmdDial->setEnabled(enabled);
    mnudial->setEnabled(enabled);
}

void frmdialler::setHangUpEnabled(bool enabled)
{
    cmdHangUp->setEnabled(enabled);
    mnuhangup->setEnabled(enabled);
}

void frmdialler::Form_Unload()
{
    Unloading = true;
    ignoreErrors([&] { cmdHangUp_Click(); });
}

/// The call ends now, also where a handler keeps this object for a while.
void frmdialler::Form_Terminate()
{
    tapiline->Release();
}

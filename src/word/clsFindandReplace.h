#pragma once

#include "FindRequest.h"
#include "TextSearch.h"

#include <QObject>
#include <QPointer>

class RichTextBox;
class dlgFindReplace;

/// Searches a rich-text control and replaces in it, as its modeless dialog asks. At most one dialog is open.
/// Positions in events count from 1. A listener may set \a cancel, and must not delete this object.
class clsFindandReplace : public QObject
{
    Q_OBJECT

public:
    explicit clsFindandReplace(QObject *parent = nullptr);
    /// Closes an open dialog without emitting Terminated.
    ~clsFindandReplace() override;

    /// Opens the dialog over \a control with the word at the caret, and closes the one before. Returns false,
    /// with no dialog, when the control is empty.
    bool ShowFind(RichTextBox &control);
    bool ShowReplace(RichTextBox &control);
    /// Searches \a control for what was last searched for, in the direction of \a upDown, which is as
    /// UpDown(). Before the first search it opens the dialog instead, without controls for replacing where
    /// the text is locked.
    void FindAgain(RichTextBox &control, int upDown);
    /// The open dialog or nullptr.
    dlgFindReplace *hWndDialog() const;
    void Terminate();
    /// Does what the dialog asks for.
    void Messages_WMArrival(const FindRequest &request);

    // Raw values of FindFlag, each 0 or its bit. They are what the next dialog opens with.
    int WholeWord() const { return m_wholeWord; }
    void setWholeWord(int value) { m_wholeWord = value; }
    int UpDown() const { return m_upDown; }
    void setUpDown(int value) { m_upDown = value; }
    int MatchCase() const { return m_matchCase; }
    void setMatchCase(int value) { m_matchCase = value; }
    /// With its bit each request counts as one for help, which does nothing.
    int ShowHelp() const { return m_showHelp; }
    void setShowHelp(int value) { m_showHelp = value; }

Q_SIGNALS:
    /// After a search step; \a position is 0 where nothing was found or the hit was refused.
    void FoundNext(bool found, int position, const QString &findText, bool &cancel);
    void Terminated();
    void BeforeReplace(int position, const QString &findText, const QString &replaceText, bool &cancel);
    void BeforeReplaceAll(const QString &findText, const QString &replaceText, bool &cancel);
    /// At the end of find next and of replace.
    void CommandDone();

private:
    enum class Outcome { Handled, NotFound, TextIsEmpty };

    bool open(RichTextBox &control, bool replaces);
    QString takeWordAtCaret();
    void terminated();
    Outcome findNext(const FindRequest &request);
    Outcome replace(const FindRequest &request);
    void replaceAll(const FindRequest &request);
    void finishCommand(Outcome outcome);

    void readText();
    bool hasSelection() const;
    std::optional<TextSearch::Hit> search(const FindRequest &request);
    void select(int start, int end);
    void replaceSelection(const QString &text);
    void replaceAllHits(const FindRequest &request);
    void giveFocus();

    int m_wholeWord = 0;
    int m_upDown;
    int m_matchCase = 0;
    int m_showHelp = 0;
    QPointer<dlgFindReplace> m_dialog;
    QPointer<RichTextBox> m_control;
    QString m_text;         ///< the control's, as last read: typing does not refresh it
    QString m_replaceText;  ///< what the dialog asked for last
    FindRequest m_lastFind; ///< empty before the first search
};

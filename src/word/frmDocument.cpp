#include "frmDocument.h"

#include "Ask.h"
#include "DocumentFiles.h"
#include "DocumentKeys.h"
#include "DocumentText.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "FormatButtons.h"
#include "Forms.h"
#include "Globals.h"
#include "LinkOpener.h"
#include "MainFrame.h"
#include "Named.h"
#include "Paths.h"
#include "RecoveryCopy.h"
#include "RichTextBox.h"
#include "Toolbar.h"
#include "Twips.h"
#include "clsFindandReplace.h"

#include <QIcon>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>

namespace {

constexpr int edge = 2;        // twips between the window's inner edge and the text control
constexpr int narrowest = 200; // twips; the control is cut by a window that is narrower
constexpr int lastWordButton = 24;
constexpr int widestIndent = 50; // of a bullet; twips, as is the step
constexpr int indentStep = 5;

/// The keys of the Edit menu that a text control would take for itself.
constexpr QKeyCombination editMenuKeys[] = {Qt::CTRL | Qt::Key_Z, Qt::CTRL | Qt::Key_X, Qt::CTRL | Qt::Key_C,
                                            Qt::CTRL | Qt::Key_V};

} // namespace

frmDocument::frmDocument()
    : ChildForm(QStringLiteral("frmDocument"))
    , rtfTextBox(named(DocumentText::name, new RichTextBox(this), QStringLiteral("Document text")))
    , m_formatTimer(new QTimer(this))
    , m_recovery(*rtfTextBox, *this)
    , dlgCommonDialog(this)
{
    setCaption(QStringLiteral("Quill-Word Document"));
    setWindowIcon(QIcon(QStringLiteral(":/document.svg")));
    setFocusProxy(rtfTextBox);
    rtfTextBox->installEventFilter(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_formatTimer->setSingleShot(true);
    m_formatTimer->setInterval(0);
    addOperation(QStringLiteral("closeme"), &frmDocument::closeme);
    addOperation(QStringLiteral("bullet"), &frmDocument::bullet);
    addOperation(QStringLiteral("getmargins"), &frmDocument::getmargins);
    addOperation(QStringLiteral("getindent"), &frmDocument::getindent);
    addOperation(QStringLiteral("removeindent"), &frmDocument::removeindent);
    addOperation(QStringLiteral("unDirty"), &frmDocument::unDirty);
    addOperation(QStringLiteral("doclengthupdate"), &frmDocument::doclengthupdate);
}

void frmDocument::Form_Load()
{
    FindDialog = named("FindDialog", new clsFindandReplace(this));
    mainFrame->tbToolBar().setButtonsEnabled(1, lastWordButton, true);
    Form_Resize();
    EnableAutoURLDetection(*rtfTextBox);
    rtfTextBox->setSpellingMarks(true);
    on(rtfTextBox, &RichTextBox::Change, this, &frmDocument::rtfTextBox_Change);
    on(rtfTextBox, &RichTextBox::GotFocus, this, &frmDocument::rtfTextBox_GotFocus);
    on(rtfTextBox, &RichTextBox::SelChange, this, &frmDocument::rtfTextBox_SelChange);
    on(m_formatTimer, &QTimer::timeout, this, &frmDocument::UpdateFormatButtons);
    on(rtfTextBox, &RichTextBox::LinkClicked, this, &frmDocument::rtfTextBox_LinkClicked);
    on(&mainFrame->tbToolBar(), &Toolbar::ButtonClick, this, &frmDocument::tbToolBar_ButtonClick);
    DocumentKeys::bind(*rtfTextBox, *FindDialog, mainFrame->tbToolBar());
    doclengthupdate();
}

QSize frmDocument::sizeHint() const
{
    return {Twips::toPixels(9000, logicalDpiX()), Twips::toPixels(6000, logicalDpiY())};
}

void frmDocument::Form_Resize()
{
    const double dpi = logicalDpiX();
    const double width = qMax(ScaleWidth() - 2 * edge, double(narrowest));
    const double height = ScaleHeight() - 2 * edge;
    const int offset = Twips::toPixels(edge, dpi);
    rtfTextBox->setGeometry(offset, offset, Twips::toPixels(width, dpi), Twips::toPixels(height, dpi));
    rtfTextBox->setRightMargin(int(width)); // lines wrap at the control's edge
}

void frmDocument::closeme()
{}

void frmDocument::bullet()
{
    DocumentText::requireUnlocked(*rtfTextBox);
    rtfTextBox->setSelBullet(rtfTextBox->SelBullet() == false); // a mixed state counts as set
}

void frmDocument::getmargins()
{
    Forms::refer(QStringLiteral("frmMargins")).showModal(window());
    freshDocumentSettled();
}

void frmDocument::getindent()
{
    if (rtfTextBox->BulletIndent() >= widestIndent)
        return;
    rtfTextBox->setBulletIndent(rtfTextBox->BulletIndent() + indentStep);
    applyBulletIndent();
}

/// Intended: of a selection that is part bulleted all paragraphs get bullets, as when bullets are switched
/// off and on again. Those with a number keep it.
void frmDocument::applyBulletIndent()
{
    DocumentText::requireUnlocked(*rtfTextBox);
    rtfTextBox->applyBulletIndent();
}

void frmDocument::removeindent()
{
    if (rtfTextBox->BulletIndent() == 0)
        return;
    if (rtfTextBox->BulletIndent() < indentStep)
        rtfTextBox->setBulletIndent(0);
    rtfTextBox->setBulletIndent(rtfTextBox->BulletIndent() - indentStep); // -5 is refused: it ends here
    applyBulletIndent();
}

void frmDocument::unDirty()
{
    setDirty(false);
    m_recovery.settled();
}

void frmDocument::doclengthupdate()
{
    m_documentLength = qint32(rtfTextBox->TextRTF().size());
    setDirty(false);
    m_recovery.settled();
}

void frmDocument::setDirty(bool dirty)
{
    m_dirty = dirty;
    setWindowModified(dirty);
}

void frmDocument::recover(const RecoveryText &text, std::unique_ptr<RecoveryCopy> copy)
{
    rtfTextBox->setTextRTF(text.rtf);
    rtfTextBox->setLineEnd(text.lineEnd);
    setCaption(text.caption);
    m_documentLength = -1; // asks at closing, whatever the length is then
    m_recovery.adopt(std::move(copy));
}

void frmDocument::EnableAutoURLDetection(RichTextBox &textControl)
{
    textControl.setAutoURLDetection(true);
}

void frmDocument::DisableAutoURLDetection(RichTextBox &textControl)
{
    textControl.setAutoURLDetection(false);
}

void frmDocument::rtfTextBox_Change()
{
    setDirty(true);
    if (isLoaded()) // a handler that outlives the window's unloading leaves no copy behind
        m_recovery.changed();
    m_formatTimer->start();
}

/// The command that opens a document sets freshDocument when the document has the focus already.
void frmDocument::rtfTextBox_GotFocus()
{
    QTimer::singleShot(0, this, [this] { run([&] { freshDocumentSettled(); }); });
    m_formatTimer->start();
}

/// Discards the change that loading a file caused.
void frmDocument::freshDocumentSettled()
{
    if (!freshDocument)
        return;
    setDirty(false);
    freshDocument = false;
}

/// A walk over a long selection's formats waits until all moves of the caret are done.
void frmDocument::rtfTextBox_SelChange()
{
    m_formatTimer->start();
}

void frmDocument::UpdateFormatButtons()
{
    if (mainFrame->ActiveForm() == this)
        FormatButtons::update(mainFrame->tbToolBar(), *rtfTextBox);
}

void frmDocument::rtfTextBox_LinkClicked(int first)
{
    LinkOpener::open(rtfTextBox->linkTarget(first));
}

/// A button that pressed itself shows the selection's format again where its command was refused.
void frmDocument::tbToolBar_ButtonClick()
{
    m_formatTimer->start();
}

/// Leaves the keys of the frame's Edit menu to the menu, so that they do what its items do.
bool frmDocument::eventFilter(QObject *watched, QEvent *event)
{
    bool isMenuKey = false;
    run([&] {
        isMenuKey = event->type() == QEvent::ShortcutOverride &&
                    std::ranges::find(editMenuKeys, static_cast<QKeyEvent *>(event)->keyCombination()) !=
                        std::end(editMenuKeys);
    });
    return isMenuKey || ChildForm::eventFilter(watched, event);
}

bool frmDocument::Form_QueryUnload()
{
    DisableAutoURLDetection(*rtfTextBox);
    if (!m_dirty && rtfTextBox->TextRTF().size() != m_documentLength)
        setDirty(true);
    if (m_dirty)
        askToSave();
    return true; // Intended: the window closes whatever was answered
}

void frmDocument::Form_Terminate()
{
    m_recovery.settled();    // every question has been answered
    FindDialog->Terminate(); // not only when this window is deleted: a handler of the dialog may still run
    mainFrame->checkForDocument();
}

void frmDocument::askToSave()
{
    const MsgBoxStyle style = MsgBoxStyle::Question | MsgBoxStyle::YesNo;
    if (Ask(QStringLiteral("Save Changes to ") + Caption(), style, QStringLiteral("Save Changes?...")) ==
        MsgBoxReply::No)
        return;
    if (Ask(QStringLiteral("Save as RTF? Yes to save as RTF format No to save in Plain Text."), style,
            QStringLiteral("Save as RTF?...")) == MsgBoxReply::Yes) {
        FileSaveAsRtf();
        return;
    }
    if (Ask(QStringLiteral("Saving as Text will remove all formatting, continue?"), style,
            QStringLiteral("Confirm Save As Text...")) != MsgBoxReply::No)
        FileSaveAsTxt();
}

void frmDocument::FileSaveAsTxt()
{
    dlgCommonDialog.DialogTitle = QStringLiteral("Save As TXT");
    dlgCommonDialog.InitDir = Paths::appPath() + QStringLiteral("\\docs");
    dlgCommonDialog.DefaultExt = QStringLiteral("txt");
    dlgCommonDialog.Filter =
        QStringLiteral("Text Files (*.txt;*.bat;*.dat;*.log;*.ini)|*.txt;*.bat;*.dat;*.log;*.ini");
    saveActiveForm(RichTextFile::Format::Text);
    doclengthupdate();
}

void frmDocument::FileSaveAsRtf()
{
    dlgCommonDialog.DialogTitle = QStringLiteral("Save As RTF");
    dlgCommonDialog.InitDir = Paths::appPath() + QStringLiteral("\\docs");
    dlgCommonDialog.DefaultExt = QStringLiteral("rtf");
    dlgCommonDialog.Filter = QStringLiteral("Rich Text Format (*.rtf)|*.rtf");
    saveActiveForm(RichTextFile::Format::Rtf);
}

void frmDocument::saveActiveForm(RichTextFile::Format format)
{
    dlgCommonDialog.CancelError = true;
    dlgCommonDialog.Flags = CommonDialog::OverwritePrompt | CommonDialog::HideReadOnly;
    do {
        dlgCommonDialog.FileName.clear();
        resumeNext([&] { dlgCommonDialog.ShowSave(); });
    } while (dlgCommonDialog.FileName.isEmpty() || !writeActiveForm(dlgCommonDialog.FileName, format));
    if (mainFrame->ActiveForm() != this)
        m_recovery.leaveBehind(); // this window's own text is in no file
}

bool frmDocument::writeActiveForm(const QString &name, RichTextFile::Format format)
{
    // Intended: the active window is named and saved, also where another one is closing.
    RichTextBox *text = nullptr;
    resumeNext([&] {
        Form *active = mainFrame->ActiveForm();
        if (!active)
            throw RuntimeError(ErrorNumber::ObjectNotSet);
        active->setCaption(name);
        text = &DocumentText::of(*active);
    });
    if (!text)
        return true;
    bool written = false;
    resumeNext([&] {
        DocumentFiles::save(*text, name, format);
        written = true;
    });
    return written;
}

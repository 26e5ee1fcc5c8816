#include "frmMain.h"

#include "Ask.h"
#include "ChildForm.h"
#include "ChildMenus.h"
#include "DocumentText.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "FileDrop.h"
#include "Forms.h"
#include "FrameButtons.h"
#include "FrameCommands.h"
#include "FrameMenuBar.h"
#include "FrameMenus.h"
#include "Globals.h"
#include "MdiArea.h"
#include "MenuBuilder.h"
#include "Paths.h"
#include "RecoveredDocuments.h"
#include "RichTextBox.h"
#include "StatusBar.h"
#include "SystemShortcuts.h"
#include "Toolbar.h"
#include "Twips.h"
#include "WindowList.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int timerInterval = 500; // milliseconds
constexpr int noticeTime = 30000;  // milliseconds
const QString documentCaption = QStringLiteral("Document ");
constexpr StatusBarRow panels[] = {
    {StatusBarRow::Kind::Text, 17410, "Ready..", "Ready.."},
    {StatusBarRow::Kind::Date, 2540, "", "", Qt::AlignHCenter},
    {StatusBarRow::Kind::Time, 2540, "", "", Qt::AlignHCenter},
};

} // namespace

frmMain::frmMain()
    : m_toolBar(new Toolbar(this))
    , m_statusBar(new StatusBar(panels, this))
    , m_area(new MdiArea(this))
    , Timer1(new QTimer(this))
    , m_dialog(this)
    , m_files(*this)
    , m_formats(*this)
    , m_printing(*this)
    , m_position(*this)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Tallowick - Quill-Office Tools"));
    // Qt's own menu would hide the toolbar and leave the View menu's item checked.
    setContextMenuPolicy(Qt::NoContextMenu);
    setMenuBar(new FrameMenuBar(this));
    buildMenus();
    buildToolBar();
    m_statusBar->setObjectName(QStringLiteral("sbStatusBar"));
    setStatusBar(m_statusBar);
    setCentralWidget(m_area);
    on(new FileDrop(*this, RichTextFile::isDocumentName), &FileDrop::Dropped, this, &frmMain::frmMain_Drop);
    m_childMenus = new ChildMenus(*menuBar(), *m_area);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(timerInterval);
    on(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
}

frmMain::~frmMain()
{
    if (mainFrame == this)
        mainFrame = nullptr;
}

void frmMain::buildMenus()
{
    for (QMenu *menu : MenuBuilder::build(FrameMenus::rows(), *this))
        menuBar()->addMenu(menu);
    for (const MenuRow &row : FrameMenus::rows()) {
        const QString name = QString::fromLatin1(row.name);
        m_menuItems.insert(name, findChild<QAction *>(name));
        if (FrameCommands::exists(name))
            on(&menuItem(name), &QAction::triggered, this, [this, name] { FrameCommands::run(name, *this); });
    }
    for (const char *name : {"mnuTools", "info"}) {
        SystemShortcuts::disableMissing(*menuItem(QString::fromLatin1(name)).menu(),
                                        [](const QAction &item) { return item.objectName(); });
    }
    on(menuItem(QStringLiteral("mnuWindow")).menu(), &QMenu::aboutToShow, this, &frmMain::mnuWindow_Popup);
}

void frmMain::buildToolBar()
{
    m_toolBar->setObjectName(QStringLiteral("tbToolBar"));
    m_toolBar->setWindowTitle(QStringLiteral("Toolbar"));
    m_toolBar->setButtons(FrameButtons::rows());
    m_toolBar->setLists(FrameButtons::lists());
    for (const char *key : {"tools", "btnwinfo"}) {
        SystemShortcuts::disableMissing(
            *m_toolBar->findChild<QToolButton *>(QString::fromLatin1(key))->menu(),
            [](const QAction &entry) { return FrameButtons::commandOf(entry.objectName()); });
    }
    on(m_toolBar, &Toolbar::ButtonClick, this, &frmMain::tbToolBar_ButtonClick);
    on(m_toolBar, &Toolbar::ButtonMenuClick, this, &frmMain::tbToolBar_ButtonMenuClick);
    addToolBar(m_toolBar);
}

QAction &frmMain::menuItem(const QString &name) const
{
    return *m_menuItems.value(name);
}

QSize frmMain::sizeHint() const
{
    return {Twips::toPixels(13200, logicalDpiX()), Twips::toPixels(9000, logicalDpiY())};
}

void frmMain::load()
{
    m_lastChild = QStringLiteral("None");
    diallerMode = QStringLiteral("Setup");
    m_position.restore();
    m_toolBar->setButtonsEnabled(1, FrameButtons::lastWordButton, false);
    LoadNewDoc();
    Timer1->start();
}

/// No new document gets the number of a recovered one.
void frmMain::openRecovered()
{
    const RecoveredDocuments documents = RecoveredDocuments::open();
    for (const QString &caption : documents.captions) {
        if (caption.startsWith(documentCaption))
            m_documentCount = qMax(m_documentCount, caption.mid(documentCaption.size()).toInt());
    }
    if (const QString notice = documents.notice(); !notice.isEmpty())
        m_statusBar->showNotice(notice, noticeTime);
}

void frmMain::unload()
{
    if (!closeChildren())
        return;
    if (!isMinimized())
        m_position.store(); // Intended: without a trap; settings that cannot be written end in the default
                            // error box
    EventGate::end(EXIT_SUCCESS);
}

bool frmMain::closeChildren()
{
    for (QMdiSubWindow *child : m_area->childWindows()) {
        auto *form = qobject_cast<Form *>(child->widget());
        if (form &&
            (!form->unload() || Forms::loaded().contains(form))) // a question of its unload may still be open
            return false;
    }
    return true;
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->ignore();
    run([&] { unload(); });
}

void frmMain::LoadNewDoc()
{
    ++m_documentCount;
    Form &document = Forms::refer(QStringLiteral("frmDocument"));
    document.load();
    document.setCaption(documentCaption + QString::number(m_documentCount));
    document.showModeless();
    checkForDocument();
}

void frmMain::checkForDocument()
{
    const bool hasDocument = DocumentText::openDocuments() > 0;
    m_toolBar->setButtonsVisible(FrameButtons::firstDocumentButton, FrameButtons::lastWordButton,
                                 hasDocument);
    for (const MenuRow &row : FrameMenus::rows()) {
        if (row.flags & MenuRow::DocumentMenu)
            menuItem(QString::fromLatin1(row.name)).setVisible(hasDocument);
    }
}

void frmMain::mnuFileExit_Click()
{
    unload();
}

void frmMain::Arrange(MdiArea::Arrangement kind)
{
    m_area->arrange(kind);
}

Form *frmMain::ActiveForm() const
{
    const QMdiSubWindow *active = m_area->activeChild();
    return active ? qobject_cast<Form *>(active->widget()) : nullptr;
}

void frmMain::adopt(ChildForm &child)
{
    m_area->adopt(child);
}

void frmMain::bringForward(ChildForm &child)
{
    m_area->bringForward(child);
}

void frmMain::fillWindowList(QMenu &menu)
{
    WindowList::fill(menu, *m_area);
}

void frmMain::Timer1_Timer()
{
    const Form *active = ActiveForm();
    if (!active || active->Name() == m_lastChild)
        return;
    // Intended: m_lastChild is never set, so this runs at each tick, and a tool never keeps the
    // word-processing buttons.
    m_toolBar->setButtonsVisible(1, FrameButtons::lastWordButton,
                                 active->Name() == QLatin1String("frmDocument"));
}

void frmMain::tbToolBar_ButtonClick(const QString &key)
{
    if (const std::optional<QString> title = FrameButtons::hintTitle(key))
        Ask(QStringLiteral("Click the drop down on the right of this button to select an option."),
            MsgBoxStyle::Information, *title);
    else
        tbToolBar_ButtonMenuClick(key);
}

void frmMain::tbToolBar_ButtonMenuClick(const QString &key)
{
    ignoreErrors([&] { FrameCommands::run(FrameButtons::commandOf(key), *this); });
}

/// Each file as the Open dialog would bring it.
void frmMain::frmMain_Drop(const QStringList &paths)
{
    for (const QString &path : paths)
        m_files.open(path);
}

void frmMain::mnuViewToolbar_Click()
{
    m_toolBar->setVisible(menuItem(QStringLiteral("mnuViewToolbar")).isChecked());
}

void frmMain::mnuViewStatusBar_Click()
{
    m_statusBar->setVisible(menuItem(QStringLiteral("mnuViewStatusBar")).isChecked());
}

void frmMain::mnuWindow_Popup()
{
    fillWindowList(*menuItem(QStringLiteral("mnuWindow")).menu());
}

void frmMain::mnutipsandtricks_Click()
{
    const QString path = Paths::native(Paths::appPath() + QStringLiteral("\\help\\tipsandtricks.rtf"));
    if (FileCommands::refuseOpenFile(path))
        return;
    LoadNewDoc();
    Form &document = *ActiveForm();
    RichTextBox &text = DocumentText::of(document);
    text.LoadFile(path);
    document.setCaption(path);
    document.call(QStringLiteral("doclengthupdate"));
    text.setLocked(true);
    document.setWindowIcon(QIcon(QStringLiteral(":/tips.svg")));
    freshDocument = true;
}

#include "frmSystemMessage.h"

#include "Named.h"
#include "StandardToolMenu.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr double noticeWidth = 5910;  // twips
constexpr double noticeHeight = 6075; // twips

constexpr ToolMenuRow noticeMenuRows[] = {
    StandardToolMenu::File,
    renamed(StandardToolMenu::NewDocument, "mnuNew", "New Quill-Word Document"),
    renamed(StandardToolMenu::Close, "mnuClose", "Close System StartUp Message"),
    renamed(StandardToolMenu::ExitTools, "mnuExit", "Exit Quill-Office Tools"),
    StandardToolMenu::Window,
    renamed(StandardToolMenu::Cascade, "mnuCascade", "Cascade"),
    renamed(StandardToolMenu::TileHorizontal, "mnuTileHoriz", "Tile &Horizontal"),
    renamed(StandardToolMenu::TileVertical, "mnuTileVert", "Tile &Vertical"),
    renamed(StandardToolMenu::ArrangeIcons, "mnuArrange", "Arrange &Icons"),
};

const QString explanation = QStringLiteral(
    "Adding this will add a message box to your Windows StartUp. The message will appear before any Logon "
    "prompts and will be displayed to the user until they Click OK and acknowledge the message. If values "
    "are "
    "already set they will be displayed below for you to edit if desired. Once you have made any changes "
    "click "
    "'Activate' to apply the changes. De-Activate removes the Registry Keys and the message also.");

} // namespace

frmSystemMessage::frmSystemMessage(const LogOnNotice &notice)
    : ChildForm(QStringLiteral("frmSystemMessage"))
    , txtTitle(named<QLineEdit>("txtTitle", QStringLiteral("Title of the message")))
    , txtMessage(named("txtMessage", new QPlainTextEdit(this), QStringLiteral("Text of the message")))
    , cmdActivate(named<QPushButton>("cmdActivate", QStringLiteral("Activate")))
    , cmdDeActivate(named<QPushButton>("cmdDeActivate", QStringLiteral("De-Activate")))
    , cmdClose(named<QPushButton>("cmdClose", QStringLiteral("Close")))
    , m_notice(notice)
{
    setCaption(QStringLiteral("System Startup Message"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("dialog-information")));
    m_menus = StandardToolMenu::build(noticeMenuRows, *this);
    txtTitle->setText(QStringLiteral("Message Title"));
    txtTitle->setToolTip(QStringLiteral("Enter a message such as 'Important Message' or 'Please Read' etc."));
    txtMessage->setPlainText(QStringLiteral("Enter the message text"));
    txtMessage->setTabChangesFocus(true);
    layOut();
    setFocusProxy(txtTitle);
    setCancelButton(*cmdClose);
    WindowCommands::bind(*this, {{"cmdActivate", &frmSystemMessage::cmdActivate_Click},
                                 {"cmdDeActivate", &frmSystemMessage::cmdDeActivate_Click},
                                 {"cmdClose", &frmSystemMessage::cmdClose_Click}});
}

void frmSystemMessage::layOut()
{
    auto *Label2 = named<QLabel>("Label2", explanation);
    Label2->setWordWrap(true);
    auto *Label1 = named<QLabel>("Label1", QStringLiteral("Enter the Title for the Message"));
    Label1->setBuddy(txtTitle);
    auto *Label3 = named<QLabel>("Label3", QStringLiteral("Enter the Message Text"));
    Label3->setBuddy(txtMessage);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdActivate);
    buttons->addWidget(cmdDeActivate);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto *column = new QVBoxLayout(this);
    column->addWidget(Label2);
    for (QWidget *widget : std::initializer_list<QWidget *>{Label1, txtTitle, Label3})
        column->addWidget(widget);
    column->addWidget(txtMessage, 1);
    column->addLayout(buttons);
}

void frmSystemMessage::Form_Load()
{
    setHeight(noticeHeight);
    setWidth(noticeWidth);
    const QString caption = m_notice.caption();
    txtTitle->setText(caption.isEmpty() ? QStringLiteral("No Title") : caption);
    const QString text = m_notice.text();
    txtMessage->setPlainText(text.isEmpty() ? QStringLiteral("No Message") : text);
}

void frmSystemMessage::cmdActivate_Click()
{
    m_notice.activate(txtTitle->text(), txtMessage->toPlainText());
    unload();
}

void frmSystemMessage::cmdDeActivate_Click()
{
    m_notice.deactivate();
    unload();
}

void frmSystemMessage::cmdClose_Click()
{
    unload();
}

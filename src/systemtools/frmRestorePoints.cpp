#include "frmRestorePoints.h"

#include "Ask.h"
#include "ErrorReports.h"
#include "ListBox.h"
#include "Named.h"
#include "ShownText.h"
#include "StandardToolMenu.h"
#include "SystemRestore.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr double pointsWidth = 6465;  // twips
constexpr double pointsHeight = 7140; // twips

constexpr ToolMenuRow pointsMenuRows[] = {
    renamed(StandardToolMenu::File, "mnufile", "&File"),
    renamed(StandardToolMenu::NewDocument, "mnuNew", "New QuillWord Document"),
    renamed(StandardToolMenu::Close, "mnuClose", "Close Restore Points"),
    renamed(StandardToolMenu::ExitTools, "mnuExit", "Exit Quill-Office Tools"),
    StandardToolMenu::Window,
    renamed(StandardToolMenu::Cascade, "mnuCascade", "Cascade"),
    renamed(StandardToolMenu::TileHorizontal, "mnuTileHoriz", "Tile &Horizontal"),
    renamed(StandardToolMenu::TileVertical, "mnuTileVert", "Tile &Vertical"),
    renamed(StandardToolMenu::ArrangeIcons, "mnuArrange", "Arrange &Icons"),
};

/// "20261120235109" as "20/11/2026-23:51:09".
QString dateText(const QString &creationtime)
{
    const auto part = [&](qsizetype first, qsizetype length) { return creationtime.mid(first - 1, length); };
    return part(7, 2) + u'/' + part(5, 2) + u'/' + part(1, 4) + u'-' + part(9, 2) + u':' + part(11, 2) +
           u':' + part(13, 2);
}

QString rowOf(const SystemRestore::Point &point)
{
    return QStringLiteral("P") + QString::number(point.SequenceNumber) + QStringLiteral(" : ") +
           ShownText::line(point.Description) + QStringLiteral(" : ") + dateText(point.creationtime);
}

/// Disables buttons as long as it lives. The focus waits in \a rest, or it would go on to the next button,
/// which a key would press; it comes back unless the user has taken it elsewhere.
class Disabled
{
public:
    Disabled(const QList<QPushButton *> &buttons, QWidget &rest)
        : m_buttons(buttons)
        , m_rest(rest)
    {
        for (QPushButton *button : m_buttons) {
            if (button->hasFocus()) {
                m_focus = button;
                m_rest.setFocus();
            }
        }
        for (QPushButton *button : m_buttons)
            button->setEnabled(false);
    }
    ~Disabled()
    {
        for (QPushButton *button : m_buttons)
            button->setEnabled(true);
        if (m_focus && m_rest.window()->focusWidget() == &m_rest) // also while a box goes away
            m_focus->setFocus();
    }
    Disabled(const Disabled &) = delete;
    Disabled &operator=(const Disabled &) = delete;

private:
    QList<QPushButton *> m_buttons;
    QWidget &m_rest;
    QPushButton *m_focus = nullptr;
};

} // namespace

frmRestorePoints::frmRestorePoints()
    : ChildForm(QStringLiteral("frmRestorePoints"))
    , Text1(named<QLineEdit>("Text1", QStringLiteral("Description of the new restore point")))
    , Command1(named<QPushButton>("Command1", QStringLiteral("&Show")))
    , Command2(named<QPushButton>("Command2", QStringLiteral("C&reate")))
    , Command3(named<QPushButton>("Command3", QStringLiteral("Close")))
    , listview2(named<ListBox>("listview2", QStringLiteral("Restore points")))
{
    setCaption(QStringLiteral("Show/Create System Restore Points"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("document-open-recent")));
    m_menus = StandardToolMenu::build(pointsMenuRows, *this);
    Command1->setToolTip(QStringLiteral("Show Current System Restore Points"));
    Command2->setToolTip(QStringLiteral("Create a New System Restore Point"));
    Command3->setToolTip(QStringLiteral("Close"));
    layOut();
    listview2->setTextElideMode(Qt::ElideMiddle); // the time is last
    setFocusProxy(Text1);
    setCancelButton(*Command3);
    WindowCommands::bind(*this, {{"Command1", &frmRestorePoints::Command1_Click},
                                 {"Command2", &frmRestorePoints::Command2_Click},
                                 {"Command3", &frmRestorePoints::Command3_Click}});
}

void frmRestorePoints::layOut()
{
    auto *Label1 =
        named<QLabel>("Label1", QStringLiteral("Description of New Restore Point. (Date && Time appended "
                                               "automatically)"));
    Label1->setTextFormat(Qt::AutoText); // whose mnemonics a buddy has: "&&" is one sign
    Label1->setBuddy(Text1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(Command2);
    buttons->addWidget(Command1);
    buttons->addStretch();
    buttons->addWidget(Command3);
    auto *column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(Text1);
    column->addWidget(listview2, 1);
    column->addLayout(buttons);
}

void frmRestorePoints::Form_Load()
{
    setHeight(pointsHeight);
    setWidth(pointsWidth);
}

void frmRestorePoints::Command1_Click()
{
    ListPoints();
}

void frmRestorePoints::Command2_Click()
{
    if (Text1->text().isEmpty()) {
        Ask(QStringLiteral("Enter a name for the restore point!"), MsgBoxStyle::Critical,
            QStringLiteral("Error!"));
        return;
    }
    CreatePoint();
}

void frmRestorePoints::CreatePoint()
{
    resumeNext([&] {
        const Disabled whileWorking({Command1, Command2}, *listview2);
        SystemRestore::CreateRestorePoint(Text1->text());
        Ask(QStringLiteral("Restore Point Created Successfully!"), MsgBoxStyle::Information,
            QStringLiteral("Job Done!"));
        if (isLoaded())
            ListPoints();
    });
}

void frmRestorePoints::ListPoints()
{
    const Disabled whileWorking({Command1, Command2}, *listview2);
    listview2->Clear();
    QStringList rows;
    for (const SystemRestore::Point &point : SystemRestore::instances())
        rows.append(rowOf(point));
    listview2->addItems(rows);
}

void frmRestorePoints::Command3_Click()
{
    unload();
}

#include "BookIcons.h"
#include "BookMenus.h"
#include "BookSizes.h"
#include "ElidedButton.h"
#include "EventGate.h"
#include "FairWidths.h"
#include "ListCommands.h"
#include "ListView.h"
#include "Named.h"
#include "StandardToolMenu.h"
#include "Toolbar.h"
#include "TreeView.h"
#include "Twips.h"
#include "WindowCommands.h"
#include "frmAddressBook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

namespace {

constexpr int toolbarIconSize = 16; // pixels
constexpr int imageSize = 48;       // pixels
constexpr int rowGap = 2;           // pixels
constexpr int treeIndentation = 14; // pixels

// Twips.
constexpr int sideGap = 90;
constexpr int treeWidth = 2450;
constexpr int listLeft = 2600;    // the list then ends where the line does
constexpr int firstWidth = 12300; // beside and below another child in a frame of its first size
constexpr int firstHeight = 6900;

/// Low enough for three rows of controls above the list.
void makeLow(QPushButton &button)
{
    button.setFixedHeight(button.fontMetrics().height() + 6);
}

/// A row without margins, in a widget of its own.
QHBoxLayout *rowIn(QWidget &widget, int spacing)
{
    auto *row = new QHBoxLayout(&widget);
    row->setContentsMargins({});
    row->setSpacing(spacing);
    return row;
}

} // namespace

frmAddressBook::frmAddressBook()
    : ChildForm(QStringLiteral("frmAddressBook"))
    , m_topRow(new QWidget(this))
    , m_commandRow(new QWidget(this))
    , m_letterRow(new QWidget(this))
    , dlgCommonDialog1(this)
{
    setCaption(QStringLiteral("Quill-Address Book"));
    setWindowIcon(BookIcons::book());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_menus = StandardToolMenu::build(BookMenus::menus(), *this);
    m_popup = m_menus.last();
    buildTopRow();
    buildCommandRow();
    buildLetterRow();
    buildPanes();
    m_commands = std::make_unique<ListCommands>(*this);
    bind();
}

frmAddressBook::~frmAddressBook() = default;

QSize frmAddressBook::sizeHint() const
{
    return {Twips::toPixels(firstWidth, logicalDpiX()), Twips::toPixels(firstHeight, logicalDpiY())};
}

void frmAddressBook::buildTopRow()
{
    Toolbar1 = named("Toolbar1", new Toolbar);
    Toolbar1->setIconSize({toolbarIconSize, toolbarIconSize});
    Toolbar1->setButtons(BookMenus::buttons());
    Toolbar1->setLists(BookMenus::lists());
    lblSel = named<QLabel>("lblSel", QString());
    lblSel->setMinimumWidth(1); // a long name is cut
    QFont bold = lblSel->font();
    bold.setBold(true);
    lblSel->setFont(bold);
    auto *row = rowIn(*m_topRow, rowGap);
    row->addWidget(Toolbar1);
    row->addWidget(lblSel, 1, Qt::AlignRight | Qt::AlignVCenter);
    Line1 = named("Line1", new QFrame(this));
    Line1->setFrameStyle(QFrame::HLine | QFrame::Sunken);
}

QPushButton *frmAddressBook::command(const char *name, const QString &caption)
{
    auto *button = named<ElidedButton>(name, caption);
    makeLow(*button);
    return button;
}

void frmAddressBook::buildCommandRow()
{
    auto *row = rowIn(*m_commandRow, rowGap);
    row->addWidget(command("CmdNewContact", QStringLiteral("New Contact")));
    row->addWidget(command("cmdGroup", QStringLiteral("Add New Group")));
    row->addWidget(command("cmdCity", QStringLiteral("Add New City")));
    row->addWidget(command("cmdState", QStringLiteral("Add New County/State/Province")));
    row->addWidget(command("cmdRefresh", QStringLiteral("&Refresh Data")));
    row->addWidget(command("CmdBirthDays", QStringLiteral("Birth Day Reminder")));
    row->addWidget(command("cmddeleteselected", QStringLiteral("Delete Checked")));
    row->addStretch();
}

void frmAddressBook::buildLetterRow()
{
    auto *row = rowIn(*m_letterRow, 1);
    for (int i = 0; i < 26; ++i) {
        const QString letter(QChar(u'A' + i));
        auto *cmdChar = named<QPushButton>({"cmdChar", i}, letter, QStringLiteral("Names with ") + letter);
        cmdChar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        makeLow(*cmdChar);
        row->addWidget(cmdChar);
    }
}

void frmAddressBook::buildPanes()
{
    Tv = named("Tv", new TreeView(this), QStringLiteral("Groups, cities and states"));
    Tv->setIndentation(treeIndentation);
    Lv = named("Lv", new ListView(this), QStringLiteral("Addresses"));
    Image1 = named("Image1", new QLabel(this));
    Image1->setPixmap(BookIcons::book().pixmap(QSize(imageSize, imageSize), devicePixelRatio()));
    Image1->setAlignment(Qt::AlignCenter);
    setFocusProxy(Tv);
}

void frmAddressBook::bind()
{
    using Window = frmAddressBook;
    WindowCommands::bind(*this, {{"CmdNewContact", &Window::newContact_Click},
                                 {"mnuContact", &Window::newContact_Click},
                                 {"mnunewcontact", &Window::newContact_Click},
                                 {"newcontact", &Window::newContact_Click},
                                 {"cmdGroup", &Window::newGroup_Click},
                                 {"mnuGroup", &Window::newGroup_Click},
                                 {"mnunewgroup", &Window::newGroup_Click},
                                 {"newgroup", &Window::newGroup_Click},
                                 {"cmdCity", &Window::newCity_Click},
                                 {"mnuCity", &Window::newCity_Click},
                                 {"mnunewcity", &Window::newCity_Click},
                                 {"newcity", &Window::newCity_Click},
                                 {"cmdState", &Window::newState_Click},
                                 {"mnuState", &Window::newState_Click},
                                 {"mnunewstate", &Window::newState_Click},
                                 {"newstate", &Window::newState_Click},
                                 {"CmdBirthDays", &Window::findBirthdays_Click},
                                 {"mnufindbirthdays", &Window::findBirthdays_Click},
                                 {"reminder", &Window::findBirthdays_Click},
                                 {"cmddeleteselected", &Window::deleteSelected_Click},
                                 {"mnudeleteselected", &Window::deleteSelected_Click},
                                 {"deleteselected", &Window::deleteSelected_Click},
                                 {"cmdRefresh", &Window::refreshData_Click},
                                 {"mnurefresh", &Window::refreshData_Click},
                                 {"mnurefresh2", &Window::refreshData_Click},
                                 {"refreshdata", &Window::refreshData_Click},
                                 {"mnuselectall", &Window::selectAll_Click},
                                 {"selectall", &Window::selectAll_Click},
                                 {"mnudeselectall", &Window::deselectAll_Click},
                                 {"deselectall", &Window::deselectAll_Click},
                                 {"cmdChar", &Window::cmdChar_Click},
                                 {"mnuLarge", &Window::mnuLarge_Click},
                                 {"mnuSmall", &Window::mnuSmall_Click},
                                 {"mnuList", &Window::mnuList_Click},
                                 {"mnuDets", &Window::mnuDets_Click},
                                 {"mnupagesetup", &Window::mnupagesetup_Click},
                                 {"mnuprintselected", &Window::printSelected_Click},
                                 {"prtselected", &Window::printSelected_Click},
                                 {"mnusummary", &Window::mnusummary_Click},
                                 {"mnutest", &Window::mnutest_Click},
                                 {"mprint", &Window::mprint_Click},
                                 {"helpme", &Window::helpme_Click},
                                 {"mnuabout", &Window::about_Click},
                                 {"helpmeabout", &Window::about_Click},
                                 {"mnuhowto", &Window::howTo_Click},
                                 {"helpmehowto", &Window::howTo_Click}});
    on(Tv, &TreeView::NodeClick, this, &Window::Tv_NodeClick);
    on(Lv, &ListView::DblClick, this, &Window::Lv_DblClick);
    on(Lv, &ListView::KeyDown, this, &Window::Lv_KeyDown);
    on(Lv, &ListView::MouseDown, this, &Window::Lv_MouseDown);
}

// ---- Size

void frmAddressBook::Form_Resize()
{
    if (Height() < BookSizes::leastLength)
        setHeight(BookSizes::leastLength);
    if (Width() < BookSizes::leastLength)
        setWidth(BookSizes::leastLength);
    placeRows();
    const auto across = [this](double twips) { return Twips::toPixels(twips, logicalDpiX()); };
    const auto down = [this](double twips) { return Twips::toPixels(twips, logicalDpiY()); };
    const BookSizes sizes = BookSizes::of(Width(), Height(), Twips::fromPixels(Tv->y(), logicalDpiY()));
    Line1->resize(across(sizes.lineEnd) - Line1->x(), Line1->sizeHint().height());
    m_letterRow->resize(across(sizes.listWidth), m_letterRow->sizeHint().height());
    Tv->resize(across(treeWidth), down(sizes.treeHeight));
    Lv->resize(across(sizes.listWidth), down(sizes.listHeight));
    const int imageTop = down(sizes.imageTop);
    Image1->setGeometry(Tv->x(), imageTop, Tv->width(), Lv->geometry().bottom() + 1 - imageTop);
}

/// Everything but the tree and the list keeps its place.
void frmAddressBook::placeRows()
{
    const int left = Twips::toPixels(sideGap, logicalDpiX());
    const int right = Twips::toPixels(BookSizes::of(Width(), Height(), 0).lineEnd, logicalDpiX());
    int y = 0;
    m_topRow->setGeometry(0, y, right, m_topRow->sizeHint().height());
    y += m_topRow->height();
    Line1->move(left, y);
    y += Line1->sizeHint().height();
    shareRow(right - left);
    m_commandRow->setGeometry(left, y, right - left, m_commandRow->sizeHint().height());
    y += m_commandRow->height() + rowGap;
    Tv->move(left, y);
    m_letterRow->move(Twips::toPixels(listLeft, logicalDpiX()), y);
    y += m_letterRow->sizeHint().height();
    Lv->move(m_letterRow->x(), y);
}

/// Gives each command its part of \a width pixels. The longest captions are cut first.
void frmAddressBook::shareRow(int width)
{
    const auto buttons = m_commandRow->findChildren<ElidedButton *>(Qt::FindDirectChildrenOnly);
    QList<int> wanted;
    for (const ElidedButton *button : buttons)
        wanted.append(button->sizeHint().width());
    const QList<int> widths = FairWidths::of(wanted, width - rowGap * int(buttons.size()));
    for (qsizetype i = 0; i < buttons.size(); ++i)
        buttons[i]->setFixedWidth(widths[i]);
}

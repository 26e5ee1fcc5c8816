#include "CvbTAPILine.h"
#include "EventGate.h"
#include "ListBox.h"
#include "Named.h"
#include "PlainTextDelegate.h"
#include "ReportDelegate.h"
#include "StandardToolMenu.h"
#include "WindowCommands.h"
#include "WindowIcons.h"
#include "frmdialler.h"

#include <QComboBox>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr double keyWidth = 3.2;  // in heights of the keys' font
constexpr double keyHeight = 1.9; // in heights of the keys' font
constexpr double keyFontScale = 1.3;
constexpr double numberFontScale = 1.6;
constexpr int reportRows = 10;
constexpr int progressRows = 6;
constexpr int progressLetters = 30;
constexpr int lineLetters = 24;

constexpr const char *dialIcon = "call-start";
constexpr const char *hangUpIcon = "call-stop";

constexpr ToolMenuRow menuRows[] = {
    StandardToolMenu::File,
    StandardToolMenu::NewDocument,
    {{1, "mnuline1", "", nullptr, MenuRow::Separator, nullptr}},
    {{1, "mnudial", "&Dial", nullptr, 0, dialIcon}},
    {{1, "mnuhangup", "&Hangup", nullptr, 0, hangUpIcon}},
    {{1, "mnuline2", "", nullptr, MenuRow::Separator, nullptr}},
    StandardToolMenu::Close,
    StandardToolMenu::ExitTools,
    StandardToolMenu::Window,
    StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal,
    StandardToolMenu::TileVertical,
    StandardToolMenu::ArrangeIcons,
};

/// On the keys of a telephone.
constexpr const char *letters[] = {"", "", "ABC", "DEF", "GHI", "JKL", "MNO", "PQRS", "TUV", "WXYZ"};

struct SpecialKey
{
    const char *caption;
    const char *spoken;
};
constexpr SpecialKey specialKeys[] = {
    {"#", "Hash"}, {"*", "Star"}, {"Enter a Pause", ""}, {"Clear Number", ""}};

QFont scaled(QFont font, double scale)
{
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale); // also where the desktop gives it in pixels
    return font;
}

QPushButton *key(const ControlName &name, const QString &caption, const QString &spoken)
{
    auto *key = named<QPushButton>(name, caption, spoken);
    key->setFont(scaled(key->font(), keyFontScale));
    key->setMinimumSize((QSizeF(keyWidth, keyHeight) * key->fontMetrics().height()).toSize());
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored); // so that all grow evenly
    return key;
}

ListBox *list(const char *name, const QString &spoken, int rows)
{
    auto *list = named<ListBox>(name, spoken);
    list->setMinimumHeight(PlainTextDelegate::heightOfRows(*list, rows));
    list->setMinimumWidth(progressLetters * list->fontMetrics().averageCharWidth());
    return list;
}

} // namespace

frmdialler::frmdialler(LineService *service)
    : ChildForm(QStringLiteral("frmdialler"))
    , m_icons(new WindowIcons(*this))
    , lblLineSel(named<QLabel>("lblLineSel", QStringLiteral("Select Modem To Use")))
    , cboLineSel(named<QComboBox>("cboLineSel", QStringLiteral("Select Modem To Use")))
    , cmdConfigDlg(named<QPushButton>("cmdConfigDlg", QStringLiteral("Line Config Dialog...")))
    , cmdDialProps(named<QPushButton>("cmdDialProps", QStringLiteral("Dialing Properties...")))
    , lstLineInfo(list("lstLineInfo", QStringLiteral("Line Information"), reportRows))
    , txtPhoneNumber(named<QLineEdit>("txtPhoneNumber", QStringLiteral("Enter Phone Number to dial")))
    , cmdDial(named<QPushButton>("cmdDial", QStringLiteral("Dial...")))
    , cmdHangUp(named<QPushButton>("cmdHangUp", QStringLiteral("Hang Up")))
    , lstCallProgress(list("lstCallProgress", QStringLiteral("Call Progress"), progressRows))
    , Label1(named("Label1", new QLabel(QStringLiteral("Modem"))))
    , cmdExit(named<QPushButton>("cmdExit", QStringLiteral("Save && Close")))
    , m_rows(new QVBoxLayout(this))
    , m_menus(StandardToolMenu::build(menuRows, *this))
    , mnudial(findChild<QAction *>(QStringLiteral("mnudial")))
    , mnuhangup(findChild<QAction *>(QStringLiteral("mnuhangup")))
    , m_ownService(service ? nullptr : std::make_unique<TelephoneService>(m_dialogs))
    , m_service(service ? *service : *m_ownService)
{
    setCaption(QStringLiteral("Quill-Dialler Set-Up"));
    setWindowIcon(ThemeIcon::named(QString::fromLatin1(dialIcon)));
    buildKeypad();
    buildFields();
    layOut();
    orderTabs();
    setFocusProxy(txtPhoneNumber);
    bind();
}

frmdialler::~frmdialler() = default;

void frmdialler::buildKeypad()
{
    for (int i = 0; i < int(cmddigit.size()); ++i) {
        const QString digit = QString::number(i);
        cmddigit[i] = key({"cmddigit", i}, digit, digit);
        cmddigit[i]->setToolTip(QString::fromLatin1(letters[i]));
    }
    for (int i = 0; i < int(cmddecimal.size()); ++i) {
        const ControlName name{"cmddecimal", i};
        const QString caption = QString::fromLatin1(specialKeys[i].caption);
        const QString spoken = QString::fromLatin1(specialKeys[i].spoken);
        cmddecimal[i] = spoken.isEmpty() ? named<QPushButton>(name, caption) : key(name, caption, spoken);
    }
}

void frmdialler::buildFields()
{
    txtPhoneNumber->setText(QStringLiteral("1234567"));
    txtPhoneNumber->setAlignment(Qt::AlignRight);
    txtPhoneNumber->setFont(scaled(txtPhoneNumber->font(), numberFontScale));
    cboLineSel->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboLineSel->setMinimumContentsLength(lineLetters);
    cboLineSel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    cboLineSel->setItemDelegate(new PlainTextDelegate(cboLineSel));
    lblLineSel->setBuddy(cboLineSel);
    lstLineInfo->setItemDelegate(new ReportDelegate(lstLineInfo));
    Label1->setTextFormat(Qt::PlainText);
    Label1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name is cut off
    m_icons->add(*cmdDial, QString::fromLatin1(dialIcon));
    m_icons->add(*cmdHangUp, QString::fromLatin1(hangUpIcon));
}

/// The controls of the other mode take no room.
void frmdialler::shape()
{
    for (QWidget *control :
         std::initializer_list<QWidget *>{cboLineSel, lblLineSel, lstLineInfo, cmdConfigDlg, cmdDialProps})
        control->setVisible(m_isSetup);
    for (QPushButton *digit : cmddigit)
        digit->setVisible(!m_isSetup);
    for (QPushButton *special : cmddecimal)
        special->setVisible(!m_isSetup);
    cmdDial->setText(m_isSetup ? QStringLiteral("Test Dial...") : QStringLiteral("Dial..."));
    cmdExit->setText(m_isSetup ? QStringLiteral("Save && Close") : QStringLiteral("Close"));
    m_rows->setStretch(0, m_isSetup ? 2 : 0); // a row without controls would take its part too
    for (QPushButton *button : {cmdDial, cmdExit})
        button->setAccessibleName(withoutMnemonic(button->text()));
}

QLayout *frmdialler::layOutLine()
{
    auto *choice = new QHBoxLayout;
    choice->addWidget(lblLineSel);
    choice->addWidget(cboLineSel, 1);
    choice->addWidget(cmdConfigDlg);
    choice->addWidget(cmdDialProps);
    auto *column = new QVBoxLayout;
    column->addLayout(choice);
    column->addWidget(lstLineInfo, 1);
    return column;
}

QLayout *frmdialler::layOutKeypad()
{
    auto *grid = new QGridLayout;
    constexpr int columns = 3;
    for (int i = 1; i < int(cmddigit.size()); ++i)
        grid->addWidget(cmddigit[i], (i - 1) / columns, (i - 1) % columns);
    grid->addWidget(cmddecimal[1], columns, 0);
    grid->addWidget(cmddigit[0], columns, 1);
    grid->addWidget(cmddecimal[0], columns, 2);
    return grid;
}

QLayout *frmdialler::layOutPhone()
{
    auto *lblPhoneNumber = named<QLabel>("lblPhoneNumber", QStringLiteral("Enter Phone Number to dial:"));
    lblPhoneNumber->setBuddy(txtPhoneNumber);
    auto *specials = new QHBoxLayout;
    specials->addWidget(cmddecimal[2], 1);
    specials->addWidget(cmddecimal[3], 1);
    auto *calls = new QHBoxLayout;
    calls->addWidget(cmdDial, 1);
    calls->addWidget(cmdHangUp, 1);
    auto *column = new QVBoxLayout;
    column->addWidget(lblPhoneNumber);
    column->addWidget(txtPhoneNumber);
    column->addLayout(layOutKeypad(), 1);
    column->addLayout(specials);
    column->addLayout(calls);
    column->addStretch(); // takes what is left where there is no keypad
    return column;
}

QLayout *frmdialler::layOutProgress()
{
    auto *lblProgress = named<QLabel>("lblProgress", QStringLiteral("Call Progress:"));
    lblProgress->setBuddy(lstCallProgress);
    auto *column = new QVBoxLayout;
    column->addWidget(lblProgress);
    column->addWidget(lstCallProgress, 1);
    return column;
}

QLayout *frmdialler::layOutFoot()
{
    auto *row = new QHBoxLayout;
    row->addWidget(Label1, 1);
    row->addWidget(cmdExit);
    return row;
}

void frmdialler::layOut()
{
    auto *call = new QHBoxLayout;
    call->addLayout(layOutPhone(), 1);
    call->addLayout(layOutProgress(), 1);
    m_rows->addLayout(layOutLine());
    m_rows->addLayout(call, 1);
    m_rows->addLayout(layOutFoot());
}

/// Along the rows, as the window is read.
void frmdialler::orderTabs()
{
    QList<QWidget *> order = {cboLineSel, cmdConfigDlg, cmdDialProps, lstLineInfo, txtPhoneNumber};
    for (const int digit : {1, 2, 3, 4, 5, 6, 7, 8, 9})
        order.append(cmddigit[digit]);
    order.append({cmddecimal[1], cmddigit[0], cmddecimal[0], cmddecimal[2], cmddecimal[3], cmdDial, cmdHangUp,
                  lstCallProgress, cmdExit});
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void frmdialler::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmddigit", &frmdialler::cmddigit_Click},
                                    {"cmddecimal", &frmdialler::cmddecimal_Click},
                                    {"cmdDial", &frmdialler::cmdDial_Click},
                                    {"mnudial", &frmdialler::cmdDial_Click},
                                    {"cmdHangUp", &frmdialler::cmdHangUp_Click},
                                    {"mnuhangup", &frmdialler::cmdHangUp_Click},
                                    {"cmdExit", &frmdialler::cmdExit_Click},
                                    {"cmdConfigDlg", &frmdialler::cmdConfigDlg_Click},
                                    {"cmdDialProps", &frmdialler::cmdDialProps_Click},
                                });
    on(cboLineSel, &QComboBox::activated, this, &frmdialler::cboLineSel_Click);
}

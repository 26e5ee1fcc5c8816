#include "frmCalculator.h"

#include "Ask.h"
#include "ChoiceList.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "Named.h"
#include "StandardToolMenu.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"

#include <QFontInfo>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int mostDecimals = 8;
constexpr double keyWidth = 2.7;  // in heights of the keys' font
constexpr double keyHeight = 1.7; // in heights of the keys' font
constexpr double keyFontScale = 1.25;
constexpr double pointFontScale = 1.6; // over the keys' own: a dot is small
constexpr double fieldFontScale = 1.9;
constexpr double sizeFactor = 1.2; // over what the layout needs

constexpr ToolMenuRow menuRows[] = {
    StandardToolMenu::File,           StandardToolMenu::NewDocument,  StandardToolMenu::Close,
    StandardToolMenu::ExitTools,      StandardToolMenu::Window,       StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal, StandardToolMenu::TileVertical, StandardToolMenu::ArrangeIcons,
};

struct ActionKey
{
    const char *caption;
    const char *spoken;
};

/// In the order of Operation, which is the index of the key.
constexpr ActionKey actionKeys[] = {
    {"=", "Equals"}, {"+", "Add"},       {"-", "Subtract"}, {"X", "Multiply"},
    {"/", "Divide"}, {"% =", "Percent"}, {"Clr", "Clear"},
};

QFont scaled(QFont font, double scale)
{
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale); // also where the desktop gives it in pixels
    return font;
}

} // namespace

frmCalculator::frmCalculator()
    : ChildForm(QStringLiteral("frmCalculator"))
    , txtresult(named<QLineEdit>("txtresult", QStringLiteral("Entry and result")))
    , listDecimals(named("listDecimals", new ChoiceList(this), QStringLiteral("Decimal places shown")))
    , Option1{named<QRadioButton>({"Option1", 0}, QStringLiteral("Up"), QStringLiteral("Rounding up")),
              named<QRadioButton>({"Option1", 1}, QStringLiteral("Down"), QStringLiteral("Rounding down"))}
    , OKButton(named<QPushButton>("OKButton", QStringLiteral("Close")))
    , m_calculator(*this)
{
    setCaption(QStringLiteral("Quill-Calculator"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("accessories-calculator")));
    m_menus = StandardToolMenu::build(menuRows, *this);
    buildField();
    buildKeys();
    buildRounding();
    layOut();
    orderTabs();
    bind();
}

QSize frmCalculator::sizeHint() const
{
    return ChildForm::sizeHint() * sizeFactor;
}

void frmCalculator::buildField()
{
    txtresult->setAlignment(Qt::AlignRight);
    txtresult->setFont(scaled(txtresult->font(), fieldFontScale));
    setFocusProxy(txtresult);
}

void frmCalculator::buildKeys()
{
    for (int i = 0; i < int(cmddigit.size()); ++i) {
        const QString digit = QString::number(i);
        cmddigit[i] = key({"cmddigit", i}, digit, digit);
    }
    cmddecimal = key("cmddecimal", QStringLiteral("\u00B7"), QStringLiteral("Decimal point"));
    cmddecimal->setFont(scaled(cmddecimal->font(), pointFontScale));
    for (int i = 0; i < int(cmdaction.size()); ++i) {
        const ActionKey &row = actionKeys[i];
        cmdaction[i] =
            key({"cmdaction", i}, QString::fromLatin1(row.caption), QString::fromLatin1(row.spoken));
    }
}

QPushButton *frmCalculator::key(const ControlName &name, const QString &caption, const QString &spoken)
{
    auto *result = named<QPushButton>(name, caption, spoken);
    result->setFont(scaled(result->font(), keyFontScale));
    result->setMinimumSize((QSizeF(keyWidth, keyHeight) * result->fontMetrics().height()).toSize());
    result->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored); // so that all grow evenly
    return result;
}

void frmCalculator::buildRounding()
{
    for (int places = 0; places <= mostDecimals; ++places)
        listDecimals->addItem(QString::number(places));
}

void frmCalculator::layOut()
{
    auto *grid = new QGridLayout(this);
    grid->addWidget(txtresult, 0, 0, 1, 3);
    grid->addWidget(layOutDigits(), 1, 0);
    grid->addWidget(layOutActions(), 1, 1);
    grid->addWidget(layOutRounding(), 1, 2);
    grid->addWidget(OKButton, 2, 2, Qt::AlignRight);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
}

QFrame *frmCalculator::frame(const char *name, const QString &spoken)
{
    auto *result = named<QFrame>(name, spoken);
    result->setFrameShape(QFrame::StyledPanel);
    return result;
}

QFrame *frmCalculator::layOutDigits()
{
    QFrame *Frame1 = frame("Frame1", QStringLiteral("Digits"));
    auto *grid = new QGridLayout(Frame1);
    constexpr int columns = 3;
    for (int i = 1; i < int(cmddigit.size()); ++i)
        grid->addWidget(cmddigit[i], (9 - i) / columns, (i - 1) % columns);
    grid->addWidget(cmddigit[0], columns, 0, 1, 2);
    grid->addWidget(cmddecimal, columns, 2);
    return Frame1;
}

QFrame *frmCalculator::layOutActions()
{
    QFrame *Frame2 = frame("Frame2", QStringLiteral("Operations"));
    auto *grid = new QGridLayout(Frame2);
    const auto add = [&](Operation operation, int row, int column, int rows = 1) {
        grid->addWidget(cmdaction[int(operation)], row, column, rows, 1);
    };
    add(Operation::Divide, 0, 0);
    add(Operation::Multiply, 1, 0);
    add(Operation::Subtract, 2, 0);
    add(Operation::Add, 3, 0);
    add(Operation::None, 0, 1);
    add(Operation::Percent, 1, 1);
    add(Operation::Equals, 2, 1, 2);
    return Frame2;
}

QFrame *frmCalculator::layOutRounding()
{
    QFrame *Frame3 = frame("Frame3", QStringLiteral("Rounding"));
    auto *grid = new QGridLayout(Frame3);
    grid->addWidget(named<QLabel>("Label1", QStringLiteral("Show results to")), 0, 0, 1, 2);
    grid->addWidget(listDecimals, 1, 0);
    grid->addWidget(named<QLabel>("Label2", QStringLiteral("decimal places.")), 1, 1);
    grid->addWidget(named<QLabel>("Label3", QStringLiteral("Rounding")), 2, 0, 1, 2);
    grid->addWidget(Option1[0], 3, 0);
    grid->addWidget(Option1[1], 3, 1);
    grid->setRowStretch(4, 1);
    return Frame3;
}

/// Along the rows, as the window is read.
void frmCalculator::orderTabs()
{
    QList<QWidget *> order = {txtresult};
    for (const int digit : {7, 8, 9, 4, 5, 6, 1, 2, 3, 0})
        order.append(cmddigit[digit]);
    order.append(cmddecimal);
    for (const Operation operation :
         {Operation::Divide, Operation::None, Operation::Multiply, Operation::Percent, Operation::Subtract,
          Operation::Equals, Operation::Add})
        order.append(cmdaction[int(operation)]);
    order.append({listDecimals, Option1[0], Option1[1], OKButton});
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    // Tab finds the option that is on: "Down" after the load, and Qt itself sees to it from there.
    Option1[0]->setFocusPolicy(Qt::ClickFocus);
}

void frmCalculator::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmddigit", &frmCalculator::cmddigit_Click},
                                    {"cmddecimal", &frmCalculator::cmddecimal_Click},
                                    {"cmdaction", &frmCalculator::cmdaction_Click},
                                    {"OKButton", &frmCalculator::OKButton_Click},
                                });
    on(listDecimals, &QListWidget::currentRowChanged, this, &frmCalculator::listDecimals_Click);
    for (QRadioButton *option : Option1) {
        on(option, &QRadioButton::toggled, this, [this](bool chosen) {
            if (chosen)
                Option1_Click();
        });
    }
}

void frmCalculator::Form_Load()
{
    listDecimals->setCurrentItem(listDecimals->findItems(QStringLiteral("2"), Qt::MatchExactly).constFirst());
    m_calculator.reset();
    Option1[1]->setChecked(true);
}

void frmCalculator::cmddigit_Click(int index)
{
    m_calculator.enterDigit(index);
}

void frmCalculator::cmddecimal_Click()
{
    m_calculator.enterDecimalPoint();
}

void frmCalculator::cmdaction_Click(int index)
{
    resumeNext([&] { m_calculator.press(Operation(index)); });
}

void frmCalculator::listDecimals_Click()
{
    m_calculator.chooseDecimals(listDecimals->currentRow(), Option1[0]->isChecked());
}

void frmCalculator::Option1_Click()
{
    m_calculator.chooseRounding(listDecimals->currentRow(), Option1[0]->isChecked());
}

void frmCalculator::OKButton_Click()
{
    unload();
}

QString frmCalculator::text() const
{
    return txtresult->text();
}

void frmCalculator::setText(const QString &text)
{
    txtresult->setText(text);
}

void frmCalculator::showSecondPointBox()
{
    Ask(QStringLiteral("You cannot have two decimal points in one number!"), MsgBoxStyle::Information,
        QStringLiteral("Decimal Point entry not accepted."));
}

void frmCalculator::showCalculationErrorBox(const RuntimeError &error)
{
    Ask(QStringLiteral("An error has occurred, Error Number: %1 : %2")
            .arg(error.number())
            .arg(error.description()),
        MsgBoxStyle::Critical, QStringLiteral("Calculation error..."));
}

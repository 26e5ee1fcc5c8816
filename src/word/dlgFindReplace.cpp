#include "dlgFindReplace.h"

#include "EventGate.h"
#include "FindFlag.h"
#include "Named.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int longestText = 1023; // a block of 1024 holds it and its end

void setFlag(int &flags, int flag, bool on)
{
    flags = on ? flags | flag : flags & ~flag;
}

} // namespace

dlgFindReplace::dlgFindReplace(const FindRequest &initial, bool replaces, QWidget *owner)
    : QDialog(owner)
    , txtFind(named<QLineEdit>("txtFind", QStringLiteral("Find what")))
    , txtReplace(named<QLineEdit>("txtReplace", QStringLiteral("Replace with")))
    , chkWholeWord(named<QCheckBox>("chkWholeWord", QStringLiteral("Match &whole word only")))
    , chkMatchCase(named<QCheckBox>("chkMatchCase", QStringLiteral("Match &case")))
    , optUp(named<QRadioButton>("optUp", QStringLiteral("&Up")))
    , optDown(named<QRadioButton>("optDown", QStringLiteral("&Down")))
    , cmdFindNext(named<QPushButton>("cmdFindNext", QStringLiteral("&Find Next")))
    , cmdReplace(named<QPushButton>("cmdReplace", QStringLiteral("&Replace")))
    , cmdReplaceAll(named<QPushButton>("cmdReplaceAll", QStringLiteral("Replace &All")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("Cancel")))
    , cmdHelp(named<QPushButton>("cmdHelp", QStringLiteral("&Help")))
    , m_flags(initial.flags)
{
    setObjectName(QStringLiteral("dlgFindReplace"));
    setWindowTitle(replaces ? QStringLiteral("Replace") : QStringLiteral("Find"));
    setAttribute(Qt::WA_ShowWithoutActivating); // the caller decides where the focus is
    auto *row = new QHBoxLayout(this);
    row->addLayout(buildFields(replaces), 1);
    row->addLayout(buildButtons(replaces));
    bind();
    fill(initial);
    fitHeight();
}

/// It grows in width only.
void dlgFindReplace::fitHeight()
{
    setFixedHeight(sizeHint().height());
}

bool dlgFindReplace::event(QEvent *event)
{
    const bool isHandled = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest) // another font needs another height
        run([&] { fitHeight(); });
    return isHandled;
}

QLayout *dlgFindReplace::buildFields(bool replaces)
{
    auto *grid = new QGridLayout;
    addField(*grid, 0, "lblFind", QStringLiteral("Fi&nd what:"), *txtFind);
    addField(*grid, 1, "lblReplace", QStringLiteral("Re&place with:"), *txtReplace);
    if (!replaces) {
        grid->itemAtPosition(1, 0)->widget()->hide();
        txtReplace->hide();
    }
    auto *choices = new QVBoxLayout;
    choices->addWidget(chkWholeWord);
    choices->addWidget(chkMatchCase);
    auto *options = new QHBoxLayout;
    options->addLayout(choices);
    options->addStretch();
    options->addWidget(buildDirection());
    grid->addLayout(options, 2, 0, 1, 2);
    grid->setRowStretch(3, 1);
    return grid;
}

void dlgFindReplace::addField(QGridLayout &grid, int row, const char *name, const QString &caption,
                              QLineEdit &field)
{
    constexpr int shownCharacters = 32;
    auto *label = named<QLabel>(name, caption);
    label->setBuddy(&field);
    field.setMaxLength(longestText);
    field.setMinimumWidth(fontMetrics().averageCharWidth() * shownCharacters);
    grid.addWidget(label, row, 0);
    grid.addWidget(&field, row, 1);
}

QGroupBox *dlgFindReplace::buildDirection()
{
    auto *direction = named<QGroupBox>("fraDirection", QStringLiteral("Direction"));
    auto *row = new QHBoxLayout(direction);
    row->addWidget(optUp);
    row->addWidget(optDown);
    return direction;
}

QLayout *dlgFindReplace::buildButtons(bool replaces)
{
    auto *column = new QVBoxLayout;
    for (QPushButton *button : {cmdFindNext, cmdReplace, cmdReplaceAll, cmdCancel, cmdHelp})
        column->addWidget(button);
    column->addStretch();
    cmdFindNext->setDefault(true);
    cmdReplace->setVisible(replaces);
    cmdReplaceAll->setVisible(replaces);
    cmdHelp->setVisible(m_flags & FindFlag::ShowHelp);
    return column;
}

void dlgFindReplace::bind()
{
    on(txtFind, &QLineEdit::textChanged, this, &dlgFindReplace::txtFind_Change);
    on(cmdFindNext, &QPushButton::clicked, this, [this] { send(FindFlag::FindNext); });
    on(cmdReplace, &QPushButton::clicked, this, [this] { send(FindFlag::Replace); });
    on(cmdReplaceAll, &QPushButton::clicked, this, [this] { send(FindFlag::ReplaceAll); });
    on(cmdHelp, &QPushButton::clicked, this, [this] { send(FindFlag::ShowHelp); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    on(this, &QDialog::finished, this, [this] {
        RunningHandler::deleteWhenNoneRuns(this);
        send(FindFlag::DialogTerm);
    });
}

void dlgFindReplace::fill(const FindRequest &initial)
{
    txtFind->setText(initial.findText);
    txtReplace->setText(initial.replaceText);
    chkWholeWord->setChecked(m_flags & FindFlag::WholeWord);
    chkMatchCase->setChecked(m_flags & FindFlag::MatchCase);
    QRadioButton *chosen = m_flags & FindFlag::Down ? optDown : optUp;
    QRadioButton *other = chosen == optDown ? optUp : optDown;
    chosen->setChecked(true);
    other->setFocusPolicy(Qt::ClickFocus); // the Tab key stops at the chosen one alone, as after a click
    txtFind->selectAll();
    txtFind->setFocus();
    txtFind_Change();
}

void dlgFindReplace::txtFind_Change()
{
    const bool isGiven = !txtFind->text().isEmpty();
    for (QPushButton *button : {cmdFindNext, cmdReplace, cmdReplaceAll})
        button->setEnabled(isGiven);
}

void dlgFindReplace::send(int request)
{
    int flags = m_flags | request;
    setFlag(flags, FindFlag::Down, optDown->isChecked());
    setFlag(flags, FindFlag::WholeWord, chkWholeWord->isChecked());
    setFlag(flags, FindFlag::MatchCase, chkMatchCase->isChecked());
    Q_EMIT Request({flags, txtFind->text(), txtReplace->text()});
}

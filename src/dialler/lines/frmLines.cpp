#include "frmLines.h"

#include "Ask.h"
#include "EventGate.h"
#include "MobilePage.h"
#include "Named.h"
#include "SerialPage.h"
#include "ShownText.h"
#include "SipPage.h"
#include "WindowCommands.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

namespace {

constexpr int mostLabelCharacters = 60;
constexpr QSize firstSize(640, 420); // pixels

const QStringList kinds = {QStringLiteral("SIP account"), QStringLiteral("Mobile modem"),
                           QStringLiteral("Modem on a serial port")};

QString rowOf(const LineSettings &line)
{
    const QString label = ShownText::line(line.label);
    return label.isEmpty() ? kinds.value(int(line.kind)) : label;
}

} // namespace

frmLines::frmLines()
    : Form(QStringLiteral("frmLines"))
    , lstLines(named<QListWidget>("lstLines", QStringLiteral("Lines")))
    , cmdAdd(named<QPushButton>("cmdAdd", QStringLiteral("&New Line")))
    , cmdRemove(named<QPushButton>("cmdRemove", QStringLiteral("&Remove Line")))
    , fields(new QWidget)
    , txtLabel(named<QLineEdit>("txtLabel", QStringLiteral("Name")))
    , cboKind(named<QComboBox>("cboKind", QStringLiteral("Kind")))
    , pages(named<QStackedWidget>("pages"))
    , m_pages{new SipPage, new MobilePage, new SerialPage}
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("Cancel")))
{
    setCaption(QStringLiteral("Telephone Lines"));
    auto *columns = new QHBoxLayout;
    columns->addWidget(buildList());
    columns->addWidget(buildFields(), 1);
    auto *rows = new QVBoxLayout(this);
    rows->addLayout(columns, 1);
    rows->addLayout(layOutButtons());
    resize(firstSize);
    setKeyButtons(*cmdOK, *cmdCancel);
    bind();
    showLine(-1);
}

void frmLines::edit(const QList<LineSettings> &lines, qsizetype selected)
{
    m_lines = lines;
    for (const LineSettings &line : m_lines)
        lstLines->addItem(rowOf(line));
    lstLines->setCurrentRow(int(selected < m_lines.size() ? selected : 0));
}

QWidget *frmLines::buildList()
{
    auto *list = new QWidget;
    auto *column = new QVBoxLayout(list);
    column->setContentsMargins({});
    column->addWidget(lstLines, 1);
    column->addWidget(cmdAdd);
    column->addWidget(cmdRemove);
    return list;
}

QWidget *frmLines::buildFields()
{
    txtLabel->setMaxLength(mostLabelCharacters);
    cboKind->addItems(kinds);
    for (LinePage *page : m_pages)
        pages->addWidget(page);
    auto *heads = new QFormLayout;
    heads->addRow(QStringLiteral("N&ame:"), txtLabel);
    heads->addRow(QStringLiteral("&Kind:"), cboKind);
    auto *column = new QVBoxLayout(fields);
    column->setContentsMargins({});
    column->addLayout(heads);
    column->addWidget(pages);
    column->addStretch(1);
    alignLabels();
    return fields;
}

/// The fields of all kinds begin in one column.
void frmLines::alignLabels()
{
    QList<QLabel *> labels = fields->findChildren<QLabel *>();
    labels.removeIf([](const QLabel *label) { return !label->buddy(); }); // a text below a field
    int width = 0;
    for (const QLabel *label : labels)
        width = qMax(width, label->sizeHint().width());
    for (QLabel *label : labels)
        label->setMinimumWidth(width);
}

QLayout *frmLines::layOutButtons()
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdOK);
    row->addWidget(cmdCancel);
    return row;
}

void frmLines::bind()
{
    on(lstLines, &QListWidget::currentRowChanged, this, &frmLines::lstLines_Click);
    on(cboKind, &QComboBox::currentIndexChanged, this, &frmLines::cboKind_Click);
    on(txtLabel, &QLineEdit::textEdited, this, &frmLines::txtLabel_Change);
    WindowCommands::bind(*this, {
                                    {"cmdAdd", &frmLines::cmdAdd_Click},
                                    {"cmdRemove", &frmLines::cmdRemove_Click},
                                    {"cmdOK", &frmLines::cmdOK_Click},
                                    {"cmdCancel", &frmLines::cmdCancel_Click},
                                });
}

LinePage &frmLines::page() const
{
    return *m_pages[std::size_t(cboKind->currentIndex())];
}

/// Takes what the user has typed into the line that is shown.
void frmLines::readFields()
{
    if (m_shown < 0)
        return;
    LineSettings &line = m_lines[m_shown];
    line.label = txtLabel->text();
    line.kind = LineSettings::Kind(cboKind->currentIndex());
    page().read(line);
}

void frmLines::showLine(int row)
{
    m_shown = row;
    fields->setEnabled(row >= 0);
    cmdRemove->setEnabled(row >= 0);
    const LineSettings line = m_lines.value(row);
    txtLabel->setText(line.label);
    cboKind->setCurrentIndex(int(line.kind));
    for (LinePage *page : m_pages)
        page->show(line);
}

void frmLines::lstLines_Click()
{
    readFields();
    showLine(lstLines->currentRow());
}

void frmLines::cmdAdd_Click()
{
    m_lines.append(LineSettings());
    lstLines->addItem(rowOf(m_lines.constLast()));
    lstLines->setCurrentRow(lstLines->count() - 1);
    txtLabel->setFocus();
}

void frmLines::cmdRemove_Click()
{
    const int row = std::exchange(m_shown, -1);
    m_lines.removeAt(row);
    delete lstLines->takeItem(row);
    showLine(lstLines->currentRow());
}

void frmLines::cboKind_Click()
{
    pages->setCurrentWidget(&page());
    if (m_shown >= 0 && txtLabel->text().isEmpty())
        lstLines->item(m_shown)->setText(cboKind->currentText());
}

void frmLines::txtLabel_Change()
{
    if (m_shown >= 0)
        lstLines->item(m_shown)->setText(txtLabel->text().isEmpty() ? cboKind->currentText()
                                                                    : ShownText::line(txtLabel->text()));
}

/// Every line is checked in the fields, so that the user sees the one that is wrong.
bool frmLines::areFieldsRight()
{
    readFields();
    for (int row = 0; row < m_lines.size(); ++row) {
        lstLines->setCurrentRow(row);
        if (const QString fault = page().fault(); !fault.isEmpty()) {
            Ask(fault, MsgBoxStyle::Exclamation, Caption());
            return false;
        }
    }
    return true;
}

void frmLines::cmdOK_Click()
{
    m_isAccepted = areFieldsRight();
    if (m_isAccepted)
        unload();
}

void frmLines::cmdCancel_Click()
{
    unload();
}

#include "LinesDialog.h"

#include "EventGate.h"
#include "MobilePage.h"
#include "Named.h"
#include "Prompts.h"
#include "SerialPage.h"
#include "ShownText.h"
#include "SipPage.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

namespace {

constexpr int mostCharacters = 60;
constexpr QSize firstSize(640, 420); // pixels

const QStringList kinds = {QStringLiteral("SIP account"), QStringLiteral("Mobile modem"),
                           QStringLiteral("Modem on a serial port")};

QString rowOf(const LineSettings &line)
{
    const QString label = ShownText::line(line.label);
    return label.isEmpty() ? kinds.value(int(line.kind)) : label;
}

} // namespace

LinesDialog::LinesDialog(const QList<LineSettings> &lines, qsizetype selected, QWidget *owner)
    : QDialog(owner)
    , m_lines(lines)
    , lstLines(named<QListWidget>("lstLines", QStringLiteral("Lines")))
    , cmdAdd(named<QPushButton>("cmdAdd", QStringLiteral("&New Line")))
    , cmdRemove(named<QPushButton>("cmdRemove", QStringLiteral("&Remove Line")))
    , fields(new QWidget)
    , txtLabel(named<QLineEdit>("txtLabel", QStringLiteral("Name")))
    , cboKind(named<QComboBox>("cboKind", QStringLiteral("Kind")))
    , pages(named<QStackedWidget>("pages"))
    , m_pages{new SipPage, new MobilePage, new SerialPage}
    , buttons(named("buttons", new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)))
{
    setObjectName(QStringLiteral("LinesDialog"));
    setWindowTitle(QStringLiteral("Telephone Lines"));
    auto *columns = new QHBoxLayout;
    columns->addWidget(buildList());
    columns->addWidget(buildFields(), 1);
    auto *rows = new QVBoxLayout(this);
    rows->addLayout(columns, 1);
    rows->addWidget(buttons);
    resize(firstSize);
    bind();
    for (const LineSettings &line : m_lines)
        lstLines->addItem(rowOf(line));
    showLine(-1);
    lstLines->setCurrentRow(int(selected < m_lines.size() ? selected : 0));
}

QWidget *LinesDialog::buildList()
{
    auto *list = new QWidget;
    auto *column = new QVBoxLayout(list);
    column->setContentsMargins({});
    column->addWidget(lstLines, 1);
    column->addWidget(cmdAdd);
    column->addWidget(cmdRemove);
    cmdAdd->setAutoDefault(false);
    cmdRemove->setAutoDefault(false);
    return list;
}

QWidget *LinesDialog::buildFields()
{
    txtLabel->setMaxLength(mostCharacters);
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
    return fields;
}

void LinesDialog::bind()
{
    on(lstLines, &QListWidget::currentRowChanged, this, &LinesDialog::lstLines_Click);
    on(cmdAdd, &QPushButton::clicked, this, &LinesDialog::cmdAdd_Click);
    on(cmdRemove, &QPushButton::clicked, this, &LinesDialog::cmdRemove_Click);
    on(cboKind, &QComboBox::currentIndexChanged, this, &LinesDialog::cboKind_Click);
    on(txtLabel, &QLineEdit::textEdited, this, &LinesDialog::txtLabel_Change);
    on(buttons, &QDialogButtonBox::accepted, this, &LinesDialog::accept);
    on(buttons, &QDialogButtonBox::rejected, this, &LinesDialog::reject);
}

LinePage &LinesDialog::page() const
{
    return *m_pages[std::size_t(cboKind->currentIndex())];
}

/// Takes what the user has typed into the line that is shown.
void LinesDialog::readFields()
{
    if (m_shown < 0)
        return;
    LineSettings &line = m_lines[m_shown];
    line.label = txtLabel->text();
    line.kind = LineSettings::Kind(cboKind->currentIndex());
    page().read(line);
}

void LinesDialog::showLine(int row)
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

void LinesDialog::lstLines_Click()
{
    readFields();
    showLine(lstLines->currentRow());
}

void LinesDialog::cmdAdd_Click()
{
    m_lines.append(LineSettings());
    lstLines->addItem(rowOf(m_lines.constLast()));
    lstLines->setCurrentRow(lstLines->count() - 1);
    txtLabel->setFocus();
}

void LinesDialog::cmdRemove_Click()
{
    const int row = std::exchange(m_shown, -1);
    m_lines.removeAt(row);
    delete lstLines->takeItem(row);
    showLine(lstLines->currentRow());
}

void LinesDialog::cboKind_Click()
{
    pages->setCurrentWidget(&page());
    if (m_shown >= 0 && txtLabel->text().isEmpty())
        lstLines->item(m_shown)->setText(cboKind->currentText());
}

void LinesDialog::txtLabel_Change()
{
    if (m_shown >= 0)
        lstLines->item(m_shown)->setText(txtLabel->text().isEmpty() ? cboKind->currentText()
                                                                    : ShownText::line(txtLabel->text()));
}

/// Every line is checked in the fields, so that the user sees the one that is wrong.
bool LinesDialog::acceptFields()
{
    readFields();
    for (int row = 0; row < m_lines.size(); ++row) {
        lstLines->setCurrentRow(row);
        if (const QString fault = page().fault(); !fault.isEmpty()) {
            MsgBox(fault, MsgBoxStyle::Exclamation, windowTitle());
            return false;
        }
    }
    return true;
}

void LinesDialog::accept()
{
    run([&] {
        if (acceptFields())
            QDialog::accept();
    });
}

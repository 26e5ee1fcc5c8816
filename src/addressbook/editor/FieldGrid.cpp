#include "FieldGrid.h"

#include "AddressBox.h"
#include "ChoiceBox.h"
#include "Named.h"
#include "WindowIcons.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int leastWidth = 12; // characters
constexpr int columnGap = 12;  // pixels, beside the layout's own

/// "txtName" has the label "lblName".
QByteArray labelName(const char *field)
{
    return "lbl" + QByteArray(field).mid(3);
}

} // namespace

FieldGrid::FieldGrid()
{
    setColumnStretch(1, 1);
}

QLineEdit *FieldGrid::addText(const char *name, const QString &caption, int limit)
{
    auto *box = named<QLineEdit>(name, caption);
    if (limit)
        box->setMaxLength(limit);
    addField(name, caption, box);
    return box;
}

AddressBox *FieldGrid::addAddress(const char *name, const QString &caption)
{
    auto *box = named<AddressBox>(name, caption);
    addField(name, caption, box);
    auto *label = itemAtPosition(rowCount() - 1, 0)->widget();
    label->setContentsMargins(0, box->textTop(), 0, 0);
    setAlignment(label, Qt::AlignTop);
    return box;
}

ChoiceBox *FieldGrid::addChoice(const char *name, const QString &caption)
{
    auto *box = named<ChoiceBox>(name, caption);
    addField(name, caption, box);
    return box;
}

QLineEdit *FieldGrid::addPhone(const char *name, const QString &caption, const char *button,
                               WindowIcons &icons)
{
    auto *box = named<QLineEdit>(name, caption);
    const QString toolTip = QStringLiteral("Dial this number");
    auto *dial = named<QPushButton>(button, QString(), caption + QStringLiteral(": ") + toolTip);
    dial->setToolTip(toolTip);
    icons.add(*dial, QStringLiteral("call-start"));
    addField(name, caption, box, dial);
    m_dialButtons.append(dial);
    return box;
}

void FieldGrid::addField(const char *name, const QString &caption, QWidget *field, QWidget *beside)
{
    const int row = rowCount();
    auto *label = named<QLabel>(labelName(name).constData(), caption);
    label->setBuddy(field);
    field->setMinimumWidth(leastWidth * field->fontMetrics().averageCharWidth());
    addWidget(label, row, 0);
    addWidget(field, row, 1, 1, beside ? 1 : 2);
    if (beside)
        addWidget(beside, row, 2);
}

void FieldGrid::endRows()
{
    QWidget *previous = itemAtPosition(rowCount() - 1, 1)->widget();
    for (QPushButton *button : m_dialButtons) {
        QWidget::setTabOrder(previous, button);
        previous = button;
    }
    setRowStretch(rowCount(), 1);
}

void FieldGrid::align(std::initializer_list<FieldGrid *> grids)
{
    int widest = 0;
    for (const FieldGrid *grid : grids) {
        for (int row = 0; row < grid->rowCount(); ++row) {
            if (const QLayoutItem *label = grid->itemAtPosition(row, 0))
                widest = qMax(widest, label->sizeHint().width());
        }
    }
    for (FieldGrid *grid : grids)
        grid->setColumnMinimumWidth(0, widest);
}

QHBoxLayout *FieldGrid::sideBySide(FieldGrid *left, FieldGrid *right)
{
    auto *row = new QHBoxLayout;
    row->addLayout(left, 1);
    row->addSpacing(columnGap);
    row->addLayout(right, 1);
    return row;
}

#include "FieldGrid.h"

#include "AddressBox.h"
#include "ChoiceBox.h"
#include "Named.h"
#include "WindowIcons.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int fieldWidth = 30; // characters

/// "txtName" has the label "lblName".
QByteArray labelName(const char *field)
{
    return "lbl" + QByteArray(field).mid(3);
}

} // namespace

QLineEdit *FieldGrid::addText(const char *name, const QString &caption, int limit)
{
    auto *box = named<QLineEdit>(name, caption);
    box->setMinimumWidth(fieldWidth * box->fontMetrics().averageCharWidth());
    if (limit)
        box->setMaxLength(limit);
    addField(name, caption, box);
    return box;
}

AddressBox *FieldGrid::addAddress(const char *name, const QString &caption)
{
    auto *box = named<AddressBox>(name, caption);
    addField(name, caption, box);
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
    return box;
}

void FieldGrid::addField(const char *name, const QString &caption, QWidget *field, QWidget *beside)
{
    const int row = rowCount();
    auto *label = named<QLabel>(labelName(name).constData(), caption);
    label->setBuddy(field);
    addWidget(label, row, 0);
    addWidget(field, row, 1, 1, beside ? 1 : 2);
    if (beside)
        addWidget(beside, row, 2);
}

#include "ReferenceLayout.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int nameWidth = 36; // characters

} // namespace

void ReferenceLayout::build(QWidget &window, const QList<Field> &fields, QPushButton &ok, QPushButton &cancel)
{
    auto *grid = new QGridLayout(&window);
    int row = 0;
    for (const auto &[label, field] : fields) {
        label->setBuddy(field);
        field->setMinimumWidth(nameWidth * field->fontMetrics().averageCharWidth());
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row++, 1);
    }
    grid->setRowStretch(row++, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(&ok);
    buttons->addWidget(&cancel);
    grid->addLayout(buttons, row, 0, 1, 2);
    grid->setColumnStretch(1, 1);
}

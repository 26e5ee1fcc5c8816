#include "UpDown.h"

#include "EventGate.h"
#include "Numbers.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

UpDown::UpDown(QLineEdit &buddy, int least, int most, QWidget *parent)
    : QWidget(parent)
    , m_buddy(buddy)
    , m_least(least)
    , m_most(most)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(addButton(Qt::UpArrow, 1));
    column->addWidget(addButton(Qt::DownArrow, -1));
    setFixedHeight(buddy.sizeHint().height());
    buddy.installEventFilter(this);
}

QToolButton *UpDown::addButton(Qt::ArrowType arrow, int step)
{
    auto *button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    button->setFixedWidth(fontMetrics().height());
    button->setAccessibleName(step > 0 ? QStringLiteral("More") : QStringLiteral("Less"));
    on(button, &QToolButton::clicked, this, [this, step] { stepBy(step); });
    return button;
}

void UpDown::stepBy(int step)
{
    const double value = Numbers::leadingNumber(m_buddy.text()) + step;
    m_buddy.setText(QString::number(qRound(qBound(double(m_least), value, double(m_most)))));
    m_buddy.selectAll();
}

bool UpDown::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    run([&] { stepBy(key == Qt::Key_Up ? 1 : -1); });
    return true;
}

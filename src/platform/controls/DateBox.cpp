#include "DateBox.h"

#include "EventGate.h"
#include "RuntimeError.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>

DateBox::DateBox(QWidget *parent)
    : QDateEdit(QDate::currentDate(), parent)
{
    setDateRange(QDate(1753, 1, 1), QDate(9999, 12, 31));
    setCalendarPopup(true);
    const QString shortForm = locale().dateFormat(QLocale::ShortFormat);
    if (!shortForm.contains(QLatin1String("yyyy"))) // two digits do not say which century is meant
        setDisplayFormat(QString(shortForm).replace(QLatin1String("yy"), QLatin1String("yyyy")));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) // Qt's bright red is hard to read on dark
        calendarWidget()->setWeekdayTextFormat(day, {});
    on(this, &QDateEdit::dateChanged, this, [this] { Q_EMIT Change(); });
}

void DateBox::setValue(const QDate &date)
{
    if (date < minimumDate() || date > maximumDate()) // an invalid date is before all others
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    setDate(date);
}

void DateBox::keyPressEvent(QKeyEvent *event)
{
    run([&] {
        const bool isAltDown = event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier;
        const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
        if (event->key() == Qt::Key_F4 || isAltDown)
            openCalendar();
        else if (event->key() == Qt::Key_Home && isPlain)
            setSelectedSection(sectionAt(0));
        else if (event->key() == Qt::Key_End && isPlain)
            setSelectedSection(sectionAt(sectionCount() - 1));
        else
            QDateEdit::keyPressEvent(event);
    });
}

/// Qt opens it for the mouse alone.
void DateBox::openCalendar()
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    QMouseEvent press(QEvent::MouseButtonPress, arrow.center(), mapToGlobal(arrow.center()), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(this, &press);
}

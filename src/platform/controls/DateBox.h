#pragma once

#include <QDateEdit>

/// A date that is typed, stepped with the arrow keys or picked in a calendar, which F4 and Alt+Down open.
/// Home and End select its first and last part, so that what is typed takes its place. There is always a
/// date; today's at first.
class DateBox : public QDateEdit
{
    Q_OBJECT

public:
    explicit DateBox(QWidget *parent = nullptr);

    QDate Value() const { return date(); }
    /// Throws RuntimeError 380 where \a date is not a date or is outside the years 1753 to 9999; the old one
    /// stays.
    void setValue(const QDate &date);

Q_SIGNALS:
    /// Another date is shown, set by the user or by code.
    void Change();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void openCalendar();
};

#pragma once

#include <QGridLayout>

class AddressBox;
class ChoiceBox;
class QLineEdit;
class WindowIcons;

/// Makes the fields of a page, a row each: a label, the field, and beside a telephone number the button that
/// dials it. Tab visits the fields in the order in which they are added.
class FieldGrid : public QGridLayout
{
public:
    /// \a limit is the highest number of characters; 0 for none.
    QLineEdit *addText(const char *name, const QString &caption, int limit = 0);
    AddressBox *addAddress(const char *name, const QString &caption);
    ChoiceBox *addChoice(const char *name, const QString &caption);
    /// \a button is the name of the button.
    QLineEdit *addPhone(const char *name, const QString &caption, const char *button, WindowIcons &icons);

    /// A row for a field that is there already, with \a beside next to it.
    void addField(const char *name, const QString &caption, QWidget *field, QWidget *beside = nullptr);
};

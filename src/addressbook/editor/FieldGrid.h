#pragma once

#include <QGridLayout>
#include <initializer_list>

class AddressBox;
class ChoiceBox;
class QLineEdit;
class QPushButton;
class WindowIcons;

/// Makes the fields of a page, a row each: a label, the field, and beside a telephone number the button that
/// dials it. Tab visits the fields in the order in which they are added, and then the buttons that dial.
class FieldGrid : public QGridLayout
{
public:
    FieldGrid();

    /// \a limit is the highest number of characters; 0 for none.
    QLineEdit *addText(const char *name, const QString &caption, int limit = 0);
    AddressBox *addAddress(const char *name, const QString &caption);
    ChoiceBox *addChoice(const char *name, const QString &caption);
    /// \a button is the name of the button.
    QLineEdit *addPhone(const char *name, const QString &caption, const char *button, WindowIcons &icons);

    /// A row for a field that is there already, with \a beside next to it.
    void addField(const char *name, const QString &caption, QWidget *field, QWidget *beside = nullptr);

    /// Behind the last row; what room there is stays below it.
    void endRows();

    /// Begins the fields of all \a grids at the same distance from their labels' left.
    static void align(std::initializer_list<FieldGrid *> grids);
    static QHBoxLayout *sideBySide(FieldGrid *left, FieldGrid *right);

private:
    QList<QPushButton *> m_dialButtons;
};

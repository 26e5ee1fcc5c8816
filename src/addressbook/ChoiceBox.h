#pragma once

#include <QComboBox>

/// A text that is typed or chosen from a list. What is typed stays as it is, also where it is no entry; the
/// list opens at the first entry that begins with it.
class ChoiceBox : public QComboBox
{
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget *parent = nullptr);

    /// Shows \a text and, where it is exactly an entry, selects that one. Is no Click.
    void setText(const QString &text);

    void showPopup() override;

Q_SIGNALS:
    /// An entry was chosen from the list or by the arrow keys. Typing the name of an entry chooses none.
    void Click();

private:
    void selectNearest();
};

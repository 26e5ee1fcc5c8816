#pragma once

#include <QComboBox>

/// The box for an address, with the list of earlier ones, which also completes what is typed.
class LocationBox : public QComboBox
{
    Q_OBJECT

public:
    explicit LocationBox(QWidget *parent = nullptr);

    QString Text() const { return currentText(); }
    /// Is no Click, whether it is an entry or not.
    void setText(const QString &text) { setEditText(text); }
    /// Adds \a text to the list and leaves the box as it is. The list keeps its first 500 entries.
    void AddItem(const QString &text, int index);
    /// As AddItem() with the index behind the last entry.
    void AddItem(const QString &text) { AddItem(text, count()); }
    /// Leaves the text of the box as it is.
    void RemoveItem(int index);
    /// Selects the entry \a index and raises Click, as a choice of the user's does.
    void setListIndex(int index);
    /// The entry that is exactly \a text; -1 where there is none.
    int indexOf(const QString &text) const;

Q_SIGNALS:
    /// An entry of the list was chosen. What is typed chooses none, also where it is an entry.
    void Click();
    /// Return was pressed, as its character 13.
    void KeyPress(int KeyAscii);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void keepText(const std::function<void()> &change);
};

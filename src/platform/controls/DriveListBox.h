#pragma once

#include <QComboBox>

struct Volume;

/// The places where files are: the file system, the home folder, drives and network shares. They are looked
/// up anew each time when the list is opened, and when the palette has turned, which gives other icons.
class DriveListBox : public QComboBox
{
    Q_OBJECT

public:
    /// Begins with the user's home folder.
    explicit DriveListBox(QWidget *parent = nullptr);

    /// The path of the selected place, as FileNames has it.
    QString Drive() const;

    void showPopup() override;

protected:
    void changeEvent(QEvent *event) override;

Q_SIGNALS:
    /// The user chose a place, also the one that is selected already.
    void Change();

private:
    void fill(const QList<Volume> &volumes);
    void add(const Volume &volume);
};

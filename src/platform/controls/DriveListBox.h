#pragma once

#include <QComboBox>

struct Volume;

/// The places where files are: the file system, the home folder, drives and network shares. They are looked
/// up anew each time when the list is opened.
class DriveListBox : public QComboBox
{
    Q_OBJECT

public:
    /// Begins with the user's home folder.
    explicit DriveListBox(QWidget *parent = nullptr);

    /// The path of the selected place, as FileNames has it.
    QString Drive() const;

    void showPopup() override;

Q_SIGNALS:
    /// The user chose a place, also the one that is selected already.
    void Change();

private:
    void fill(const QList<Volume> &volumes);
    void add(const Volume &volume);
};

#pragma once

#include <QListView>

class FolderRowsModel;

/// A folder between those that it is in and those in it. A double click or Return on one of them opens it;
/// one that may not be opened has an icon that says so, and stays closed. Nothing is watched. Hidden folders
/// are not listed. Names are as FileNames has them.
class DirListBox : public QListView
{
    Q_OBJECT

public:
    /// Begins with the user's home folder, or with the root when there is none.
    explicit DirListBox(QWidget *parent = nullptr);

    QString Path() const { return m_path; }
    /// Opens the absolute \a path. Throws RuntimeError as Folder does; the list stays as it was.
    void setPath(const QString &path);

Q_SIGNALS:
    /// Another folder was opened, by setPath() or by the user.
    void Change();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void open(const QModelIndex &index);
    void list(const QString &path);
    QModelIndex folder() const;

    FolderRowsModel *m_rows;
    QString m_path;
};

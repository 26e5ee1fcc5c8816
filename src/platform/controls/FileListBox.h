#pragma once

#include <QListView>

class NameListModel;

/// The files of one folder, folders left out. It shows what was there when it was last read: nothing is
/// watched. Names are as FileNames has them, so that a name that is not UTF-8 works, too.
class FileListBox : public QListView
{
    Q_OBJECT

public:
    /// Begins with the user's home folder.
    explicit FileListBox(QWidget *parent = nullptr);

    QString Path() const { return m_path; }
    /// Lists the files of the absolute \a path. Throws RuntimeError as Folder does; the list stays as it was.
    void setPath(const QString &path);

    /// Whether files whose names begin with a dot are listed; at first they are not.
    bool Hidden() const { return m_hidden; }
    void setHidden(bool hidden);

    /// The selected file, without its folder; empty when none is selected.
    QString FileName() const;

    int ListCount() const;
    /// The file at \a index, from 0. Throws RuntimeError 381 when there is none.
    QString List(int index) const;

    /// Reads the folder again and keeps the selected file selected where it is still there. A folder that can
    /// no longer be read gives an empty list.
    void Refresh();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    QStringList readFiles(const QString &path) const;
    void select(const QString &name);

    NameListModel *m_files;
    QString m_path;
    bool m_hidden = false;
};

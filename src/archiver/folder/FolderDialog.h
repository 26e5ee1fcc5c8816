#pragma once

#include <QDialog>

class FolderTreeModel;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;
struct FolderDialogOptions;

/// A tree of folders of which one is chosen, or typed.
class FolderDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FolderDialog(const FolderDialogOptions &options);

    /// Selects the folder that the options name, else the root or the user's home folder.
    void selectFirst();
    /// Selects \a path, if it is in the tree.
    void select(const QString &path);
    void setStatus(const QString &text);

    /// The typed path, else the selected one. A typed relative path is below the selected folder.
    QString path() const;

    void accept() override;

Q_SIGNALS:
    void SelectionChanged(const QString &sPath, bool &bAllowOk);
    void ValidationFailed(const QString &sPath, bool &bKeepOpen);

private:
    void tvwFolders_SelectionChanged();
    void txtFolder_Change();
    void cmdNewFolder_Click();

    QString selectedPath() const;
    bool hasTyped() const;
    void refuseTypedPath();

    void buildTree();
    void layOut();

    const FolderDialogOptions &m_options;
    FolderTreeModel *m_folders;
    QTreeView *tvwFolders;
    QLabel *lblStatus;
    QLineEdit *txtFolder;
    QPushButton *cmdNewFolder;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    bool m_isTyped = false;
};

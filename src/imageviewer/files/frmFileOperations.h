#pragma once

#include "Form.h"

#include <QLabel>
#include <utility>

class CommonDialog;
class QCheckBox;
class WindowIcons;

/// The details of one file, at first the one that the image window shows. Changes its attributes, copies,
/// moves and deletes it.
class frmFileOperations : public Form
{
    Q_OBJECT

public:
    frmFileOperations();

protected:
    void Form_Load() override;

private:
    void cmdLoad_Click();
    void cmdApply_Click();
    void chkNormal_Click();
    void cmdCopy_Click();
    void cmdMove_Click();
    void cmdDelete_Click();
    void cmdOK_Click();

    void GetFileInfo();
    void GetFileAttributes();
    void GetTextAttributes();
    void Uncheck();
    void ToggleEnabled(bool Enabled);

    /// Those that have an attribute, with its bit.
    QList<std::pair<QCheckBox *, int>> boxes() const;
    bool requireFile() const;
    void showNoFile();
    /// Shows the image window's dialog, which keeps the name. Throws RuntimeError 32755 when it is cancelled.
    QString choose(void (CommonDialog::*showDialog)(), const QString &title, int flags);
    QString chooseTarget(const QString &title);
    void copyTo(const QString &target);

    QWidget *buildDetails();
    QWidget *buildAttributes();
    QLayout *buildOperations();
    QPushButton *button(const char *name, const QString &caption, const char *icon);
    QCheckBox *box(const char *name, const QString &caption);
    void bind();

    CommonDialog &m_viewerDialog;
    WindowIcons *m_icons;
    QLabel *lblName;
    QLabel *lblSize;
    QLabel *lblModified;
    QLabel *lblAttr;
    QCheckBox *chkNormal;
    QCheckBox *chkReadOnly;
    QCheckBox *chkHidden;
    QCheckBox *chkArchive;
    QCheckBox *chkSystem;
    QCheckBox *chkTemporary;
    QPushButton *cmdApply;
    QPushButton *cmdLoad;
    QPushButton *cmdCopy;
    QPushButton *cmdMove;
    QPushButton *cmdDelete;
    QPushButton *cmdOK;
    QString m_currentFile; ///< the one on show
    QString m_viewerFile;  ///< the image window's, until it is deleted here
};

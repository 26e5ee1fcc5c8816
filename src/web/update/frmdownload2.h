#pragma once

#include "ChildForm.h"
#include "UpdateFileList.h"
#include "VersionFile.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// The update checker: asks the publisher's server for its version, and on request fetches an update, unpacks
/// it and hands over to the installer, with which the suite ends. No event runs during either step.
class frmdownload2 : public ChildForm
{
    Q_OBJECT

public:
    frmdownload2();

    QSize sizeHint() const override;

protected:
    void Form_Load() override;

private:
    void cmdstart_Click();
    void cmdinstall_Click();
    void OKButton_Click();
    void cmdcancel_Click();

    void check();
    void showResult(const VersionFile &file);
    void install();
    void download(const QList<UpdateFile> &files);
    /// The first of \a files that is not as long as it should be, or null.
    const UpdateFile *firstWrong(const QList<UpdateFile> &files);
    bool unpack();
    void handOver();

    /// Shows \a text at once.
    void show(const QString &text);
    void setBusy(bool busy);
    void showOnly(std::initializer_list<QPushButton *> buttons);
    /// Shows only \a buttons, the first one with the focus. What was clicked and typed while the step ran
    /// goes to what was there then: a double click on "Start" does not install.
    void offer(std::initializer_list<QPushButton *> buttons);
    void fail();
    void layOut();

    QPlainTextEdit *Text1;
    QPushButton *cmdstart;
    QPushButton *cmdinstall;
    QPushButton *OKButton;
    QPushButton *cmdcancel;
    QLabel *QProGIF1;
    QLabel *Image1;
};

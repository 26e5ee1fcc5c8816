#pragma once

#include "Form.h"

class QLabel;

/// The name, date, size and attributes of one file. No command opens it: the frame's menu item for it stays
/// hidden.
class frmProperties : public Form
{
    Q_OBJECT

public:
    frmProperties();

    /// "1.9531 KB" or "100Bytes": the length as FileSizeText shows it. Throws RuntimeError as FileDetails::of
    /// does.
    static QString GetFileSize(const QString &path);

    QString FileName; ///< native; the file that the load shows

protected:
    /// A file that is missing counts as not saved yet. Throws RuntimeError as FileDetails::of does otherwise.
    void Form_Load() override;

private:
    void cmdRefresh_Click();
    void cmdOK_Click();

    void showFile();
    void showNoFile();

    QLabel *lblFileName;
    QLabel *lblModified;
    QLabel *lblSize;
    QLabel *lblAttr;
};

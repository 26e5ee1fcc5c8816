#pragma once

#include "ArchiverWindow.h"
#include "ListBox.h"
#include "cZip.h"
#include "frmZip.h"

#include <QCheckBox>
#include <QLineEdit>

/// The zip window with files to put into archives.
struct ZipWindow : ArchiverWindow<frmZip>
{
    cZip &zip() const { return control<cZip>("m_cZ"); }
    QString target() const { return control<QLineEdit>("txtzipfolder").text(); }
    void setTarget(const QString &path) const { control<QLineEdit>("txtzipfolder").setText(path); }
    void tick(const char *box) const { control<QCheckBox>(box).setChecked(true); }
    QStringList rows(const char *list) const
    {
        QStringList rows;
        for (int row = 0; row < control<ListBox>(list).ListCount(); ++row)
            rows << control<ListBox>(list).List(row);
        return rows;
    }
    /// Makes a file of the scratch folder and adds it to the list.
    void addFile(const QByteArray &name, const QByteArray &content = "content") const
    {
        scratch.addFile(name, content);
        control<ListBox>("FileList1").AddItem(path(name));
    }
    void expectBox(const QString &text, QMessageBox::Icon icon,
                   const QString &title = QStringLiteral("QuillOfficeToolsv2"))
    {
        frame.dialogs.expectBox(title, text).icon(icon);
    }
    void expectZipped(int count, const QString &target)
    {
        expectBox(QStringLiteral("Zipped %1 file(s).\n\n   To: ").arg(count) + target,
                  QMessageBox::Information);
    }
};

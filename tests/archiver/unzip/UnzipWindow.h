#pragma once

#include "ArchiveMaker.h"
#include "ArchiverWindow.h"
#include "FolderContent.h"
#include "ListView.h"
#include "cUnzip.h"
#include "frmOverwrite.h"
#include "frmPassword.h"
#include "frmUnzip.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

/// The unzip window with archives and an empty folder "out".
struct UnzipWindow : ArchiverWindow<frmUnzip>
{
    UnzipWindow()
    {
        Forms::registerWindow(QStringLiteral("frmOverwrite"), Forms::Instances::One,
                              [] { return new frmOverwrite; });
        Forms::registerWindow(QStringLiteral("frmPassword"), Forms::Instances::One,
                              [] { return new frmPassword; });
        scratch.addFolder("out");
    }

    cUnzip &unzip() const { return control<cUnzip>("m_cUnzip"); }
    ListView &view() const { return control<ListView>("lvwZip"); }

    static MadeEntry entry(const QByteArray &name, const QByteArray &data = "content")
    {
        MadeEntry made;
        made.name = name;
        made.data = data;
        return made;
    }
    void make(const QByteArray &name, const QList<MadeEntry> &entries) const
    {
        scratch.addFile(name, ArchiveMaker::make(entries));
    }
    /// Opens the archive \a name by the dialog.
    void openArchive(const QByteArray &name)
    {
        frame.dialogs.expectFileDialog(QStringLiteral("Choose Zip FIle to Open")).accept(path(name));
        click("cmdOpen");
    }
    /// Makes the archive and opens it.
    void openWith(const QList<MadeEntry> &entries)
    {
        make("a.zip", entries);
        openArchive("a.zip");
    }

    /// The texts of a row, from 1, separated by "|".
    QString row(int row) const
    {
        const ListItem &item = view().ListItems().Item(row);
        return (QStringList(item.Text) + item.SubItems).join(u'|');
    }
    QStringList names() const
    {
        QStringList names;
        for (int row = 1; row <= view().ListItems().Count(); ++row)
            names << view().ListItems().Item(row).Text;
        return names;
    }
    QStringList selected() const
    {
        QStringList names;
        for (int row = 1; row <= view().ListItems().Count(); ++row) {
            if (view().Selected(row))
                names << view().ListItems().Item(row).Text;
        }
        return names;
    }

    void expectFolder(const QString &path)
    {
        frame.dialogs.expectWindow<QDialog>(QStringLiteral("FolderDialog"), [path](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Choose Folder for files to be extracted to.."));
            auto *box = dialog.findChild<QLineEdit *>(QStringLiteral("txtFolder"));
            ASSERT_TRUE(box->isVisible());
            box->selectAll();
            QTest::keyClicks(box, path);
            QTest::keyClick(box, Qt::Key_Return);
        });
    }
    void expectCancelledFolder()
    {
        frame.dialogs.expectWindow<QDialog>(QStringLiteral("FolderDialog"),
                                            [](QDialog &dialog) { dialog.reject(); });
    }
    /// Extracts into "out".
    void extract()
    {
        expectFolder(path("out"));
        click("cmdExtract");
    }
    QMap<QByteArray, QByteArray> files() const { return FolderContent::filesOf(scratch.file("out")); }
};

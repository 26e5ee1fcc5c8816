#include "FileDialogStep.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

FileDialogStep::FileDialogStep(const QString &title)
    : m_title(title)
{}

FileDialogStep &FileDialogStep::filters(const QStringList &filters)
{
    m_filters = filters;
    return *this;
}

FileDialogStep &FileDialogStep::defaultSuffix(const QString &suffix)
{
    m_suffix = suffix;
    return *this;
}

FileDialogStep &FileDialogStep::folder(const QString &folder)
{
    m_folder = folder;
    return *this;
}

FileDialogStep &FileDialogStep::suggests(const QString &name)
{
    m_suggestion = name;
    return *this;
}

FileDialogStep &FileDialogStep::accept(const QString &name)
{
    m_name = name;
    return *this;
}

FileDialogStep &FileDialogStep::cancel()
{
    m_name.reset();
    return *this;
}

QStringList FileDialogStep::shownFilters(const QFileDialog &dialog)
{
    const auto &list = *dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
    QStringList filters;
    for (int i = 0; i < list.count(); ++i)
        filters << list.itemText(i);
    return filters;
}

bool FileDialogStep::matches(const QWidget &window) const
{
    return qobject_cast<const QFileDialog *>(&window) && window.windowTitle() == m_title;
}

void FileDialogStep::answer(QWidget &window) const
{
    auto &dialog = static_cast<QFileDialog &>(window);
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(edit, nullptr) << "the file dialog is not Qt's own";
    if (m_filters) {
        EXPECT_EQ(shownFilters(dialog), *m_filters) << qUtf8Printable(describe());
    }
    if (m_suffix) {
        EXPECT_EQ(dialog.defaultSuffix(), *m_suffix) << qUtf8Printable(describe());
    }
    if (m_folder) {
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(*m_folder).canonicalPath())
            << qUtf8Printable(describe());
    }
    if (m_suggestion) {
        EXPECT_EQ(edit->text(), *m_suggestion) << qUtf8Printable(describe());
    }
    if (!m_name) {
        dialog.reject();
        return;
    }
    edit->setText(*m_name);
    // Not the button: it is disabled for a missing name, which the dialog has to report.
    QTest::keyClick(edit, Qt::Key_Return);
}

QString FileDialogStep::describe() const
{
    return QStringLiteral("a file dialog, title \"%1\", %2")
        .arg(m_title, m_name ? QStringLiteral("accepts \"%1\"").arg(*m_name) : QStringLiteral("cancelled"));
}

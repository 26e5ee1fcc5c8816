#include "HelpWindow.h"

#include "Files.h"
#include "HelpTable.h"

#include <QDir>
#include <QTabBar>
#include <QTest>

HelpWindow::HelpWindow()
{
    QDir(folder.path()).mkdir(QStringLiteral("help"));
    const auto write = [this](const QString &file) {
        writeDocument(file, "{\\rtf1 This is " + file.toLatin1() + "\\par for one test\\par}");
    };
    for (const HelpTable::Row &row : HelpTable::rows)
        write(QString::fromLatin1(row.file));
    write(QStringLiteral("quillofficehelpmenu.rtf"));
    open();
}

QString HelpWindow::shown() const
{
    const QString line = pane().Text().section(u'\n', 0, 0);
    return line.startsWith(QStringLiteral("This is ")) ? line.mid(8) : line;
}

void HelpWindow::show(int index) const
{
    for (QWidget *page = &topic(index); page; page = page->parentWidget()) {
        if (tabs().indexOf(page) >= 0)
            tabs().setTab(tabs().indexOf(page));
    }
    QTest::mouseClick(&topic(index), Qt::LeftButton);
}

void HelpWindow::clickTab(int tab) const
{
    QTabBar &bar = *tabs().tabBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(tab).center());
}

void HelpWindow::choose(const char *item) const
{
    form().findChild<QAction *>(QString::fromLatin1(item))->trigger();
    QCoreApplication::processEvents();
}

void HelpWindow::removeDocument(const char *file) const
{
    QFile::remove(folder.path() + QStringLiteral("/help/") + QLatin1String(file));
}

void HelpWindow::writeDocument(const QString &file, const QByteArray &rtf) const
{
    Files::write(folder.path() + QStringLiteral("/help/") + file, rtf);
}

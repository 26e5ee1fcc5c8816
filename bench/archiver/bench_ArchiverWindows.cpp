#include "FileNames.h"
#include "Forms.h"
#include "ListBox.h"
#include "ListView.h"
#include "Look.h"
#include "PaintCounter.h"
#include "frmOverwrite.h"
#include "frmPassword.h"
#include "frmUnzip.h"
#include "frmZip.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDirIterator>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <cstdio>

// The archiver's windows, as bench_archiver.py asks for them:
//
//     bench_ArchiverWindows list ARCHIVE             a dropped archive: milliseconds until its rows are
//     painted bench_ArchiverWindows extract ARCHIVE FOLDER   and then extracted into FOLDER
//     bench_ArchiverWindows zip FOLDER ARCHIVE       the files of FOLDER, 1,023 at most, into ARCHIVE
//
// The window is asked to repaint all the time. Prints the milliseconds of the last step, how often the window
// was painted meanwhile, the longest time in milliseconds in which it was not, and how many rows the list
// has.

namespace {

template<class Window>
Window &shown()
{
    Forms::registerWindow(QString::fromLatin1(Window::staticMetaObject.className()), Forms::Instances::One,
                          [] { return new Window; });
    auto &window = Forms::refer<Window>();
    window.showModeless();
    processPendingEvents();
    return window;
}

void drop(QWidget &window, const QList<QUrl> &files)
{
    QMimeData data;
    data.setUrls(files);
    QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent event({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
    processPendingEvents();
}

/// Answers the modal windows that come: types \a folder where a path can be typed.
void answerWith(const QString &folder, QTimer &polls)
{
    on(&polls, &QTimer::timeout, &polls, [folder] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        if (auto *box = dialog->findChild<QLineEdit *>(QStringLiteral("txtFolder"))) {
            box->setText(folder);
            Q_EMIT box->textEdited(folder);
        }
        dialog->accept();
    });
    polls.start(1);
}

void print(const PaintCounter &paints, int rows)
{
    std::printf("%lld %d %lld %d\n", paints.elapsed(), paints.count(), paints.longestGap(), rows);
    std::fflush(stdout);
}

void list(const QStringList &arguments)
{
    auto &window = shown<frmUnzip>();
    auto &rows = window.member<ListView>(QStringLiteral("lvwZip"));
    PaintCounter paints(window);
    paints.start();
    drop(window, {QUrl::fromLocalFile(arguments[2])});
    rows.repaint();
    paints.stop();
    if (arguments[1] == QLatin1String("extract")) {
        QTimer polls;
        answerWith(arguments[3], polls);
        window.member<QAbstractButton>(QStringLiteral("chkUseFolderNames")).click();
        paints.start();
        window.member<QAbstractButton>(QStringLiteral("cmdExtract")).click();
        paints.stop();
    }
    print(paints, rows.ListItems().Count());
}

void zip(const QStringList &arguments)
{
    auto &window = shown<frmZip>();
    QList<QUrl> files;
    for (QDirIterator found(arguments[2], QDir::Files, QDirIterator::Subdirectories); found.hasNext();)
        files += QUrl::fromLocalFile(found.next());
    drop(window, files);
    window.member<QLineEdit>(QStringLiteral("txtzipfolder")).setText(arguments[3]);
    QTimer polls;
    answerWith({}, polls);
    PaintCounter paints(window);
    paints.start();
    window.member<QAbstractButton>(QStringLiteral("cmdCreateZip")).click();
    paints.stop();
    print(paints, window.member<ListBox>(QStringLiteral("lstLog")).ListCount());
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    for (const char *place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(place, home.path().toUtf8());
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc < 3) {
        std::fputs("bench_ArchiverWindows list|extract|zip FROM [TO]\n", stderr);
        return 2;
    }
    Look::apply();
    if (arguments[1] == QLatin1String("zip"))
        zip(arguments);
    else
        list(arguments);
    std::_Exit(0);
}

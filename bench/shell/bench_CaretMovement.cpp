#include "EntryRoutine.h"
#include "Form.h"
#include "Globals.h"
#include "Look.h"
#include "Milliseconds.h"
#include "Paths.h"
#include "RichTextBox.h"
#include "RichTextFile.h"
#include "Settings.h"
#include "WindowTable.h"
#include "frmMain.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <algorithm>
#include <cstdio>

// The caret in a long document of the whole suite, whose toolbar shows the formats at each place, beside that
// in a bare QTextEdit with the same document.
//
//     QT_QPA_PLATFORM=offscreen bench_CaretMovement FILE
//
// Milliseconds from the key until the text and the toolbar are painted, medians and the longest.

namespace {

constexpr double patience = 60000; // milliseconds

struct Times
{
    double median = 0;
    double longest = 0;
};

void settle(const QTextEdit &edit)
{
    (void)QTest::qWaitFor([&] { return edit.document()->lastBlock().layout()->lineCount() > 0; },
                          int(patience));
}

Times keys(QTextEdit &edit, int position, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    constexpr int times = 60;
    QTextCursor cursor(edit.document());
    cursor.setPosition(position);
    edit.setTextCursor(cursor);
    QCoreApplication::processEvents();
    QList<double> all;
    for (int i = 0; i < times; ++i) {
        all.append(milliseconds([&] {
            QTest::keyClick(&edit, key, modifiers);
            QCoreApplication::processEvents(); // the toolbar follows, and both are painted
        }));
    }
    std::sort(all.begin(), all.end());
    return {all.at(times / 2), all.constLast()};
}

void compare(QTextEdit &text, QTextEdit &bare)
{
    const struct
    {
        const char *name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    } moves[] = {{"right", Qt::Key_Right, Qt::NoModifier},
                 {"down", Qt::Key_Down, Qt::NoModifier},
                 {"a word on", Qt::Key_Right, Qt::ControlModifier},
                 {"select to the right", Qt::Key_Right, Qt::ShiftModifier},
                 {"page down", Qt::Key_PageDown, Qt::NoModifier}};
    const int length = text.document()->characterCount();
    for (const int position : {0, length / 2, length - length / 50}) {
        std::printf("from character %d\n  %-22s %8s %8s %8s %8s\n", position, "", "suite", "longest", "bare",
                    "longest");
        for (const auto &move : moves) {
            const Times ours = keys(text, position, move.key, move.modifiers);
            const Times theirs = keys(bare, position, move.key, move.modifiers);
            std::printf("  %-22s %8.1f %8.1f %8.1f %8.1f\n", move.name, ours.median, ours.longest,
                        theirs.median, theirs.longest);
        }
    }
}

void measure(const QString &path)
{
    Settings::save(Paths::applicationTitle, QStringLiteral("Options"),
                   QStringLiteral("Show Splash at Startup"), QStringLiteral("0"));
    WindowTable::registerAll();
    EntryRoutine();
    (void)QTest::qWaitForWindowActive(static_cast<frmMain *>(mainFrame));
    auto &text = mainFrame->ActiveForm()->member<RichTextBox>(QStringLiteral("rtfTextBox"));
    text.LoadFile(path);
    settle(text);

    QTextEdit bare;
    bare.resize(text.size());
    bare.show();
    auto *document = new QTextDocument(&bare);
    RichTextFile::load(path, *document);
    bare.setDocument(document);
    settle(bare);
    compare(text, bare);
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    for (const char *place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(place, home.path().toUtf8());
    QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    Look::apply();
    measure(QFile::decodeName(argv[1]));
    std::fflush(stdout);
    std::_Exit(0); // the frame would ask about the document
}

#include "Milliseconds.h"
#include "RichTextBox.h"
#include "RtfReader.h"
#include "RtfWriter.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>
#include <cstdio>
#include <functional>

// The rich-text control beside a bare QTextEdit with the same document: opening, typing, moving, formatting.
//
//     QT_QPA_PLATFORM=offscreen bench_RichTextBox [FILE]
//
// Without a file of rich text it makes its own. Milliseconds from the event to the end of the painting,
// medians, and the ratio to the bare one in this run.

namespace {

using Step = std::function<void()>;

double median(QList<double> times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

void print(const char *what, double ours, double bare)
{
    std::printf("  %-34s %8.1f %8.1f %7.2f\n", what, ours, bare, ours / bare);
    std::fflush(stdout);
}

void print(const char *what, double ours)
{
    std::printf("  %-34s %8.1f\n", what, ours);
    std::fflush(stdout);
}

struct Mix
{
    const char *name;
    int paragraphs;
    int runs; ///< for each paragraph
    int tables;
};

QTextCharFormat runFormat(int number)
{
    QTextCharFormat format;
    switch (number % 4) {
    case 1:
        format.setFontWeight(QFont::Bold);
        break;
    case 2:
        format.setFontItalic(true);
        format.setForeground(Qt::darkRed);
        break;
    case 3:
        format.setFontFamilies({QStringLiteral("Liberation Serif")});
        format.setFontPointSize(12);
        break;
    default:
        break;
    }
    return format;
}

/// Rich text of paragraphs with runs of several looks, bullets, alignments and a few tables.
QByteArray mixedRichText(const Mix &mix)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    const int perTable = mix.tables > 0 ? mix.paragraphs / mix.tables : 0;
    for (int i = 0; i < mix.paragraphs; ++i) {
        if (perTable > 0 && i % perTable == perTable / 2) {
            cursor.insertTable(3, 3);
            cursor.movePosition(QTextCursor::End);
        }
        QTextBlockFormat paragraph;
        if (i % 20 == 0)
            paragraph.setAlignment(Qt::AlignHCenter);
        cursor.insertBlock(paragraph);
        for (int run = 0; run < mix.runs; ++run)
            cursor.insertText(QStringLiteral("some words of it %1 ").arg(i), runFormat(run));
    }
    cursor.endEditBlock();
    return RtfWriter::write(document);
}

/// One of the two controls, shown.
class Subject
{
public:
    explicit Subject(std::unique_ptr<QTextEdit> edit)
        : m_edit(std::move(edit))
    {
        m_edit->resize(800, 600);
        m_edit->show();
        (void)QTest::qWaitForWindowExposed(m_edit.get());
    }

    QTextEdit &edit() { return *m_edit; }

    void paint() { m_edit->viewport()->repaint(); }

    /// To the end of the background layout.
    void settle()
    {
        const auto isLaidOut = [this] { return m_edit->document()->lastBlock().layout()->lineCount() > 0; };
        (void)QTest::qWaitFor(isLaidOut, 60000);
    }

    void moveTo(int position)
    {
        QTextCursor cursor = m_edit->textCursor();
        cursor.setPosition(position);
        m_edit->setTextCursor(cursor);
        paint();
    }

    double key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 15)
    {
        QList<double> all;
        for (int i = 0; i < times; ++i) {
            all.append(milliseconds([&] {
                QTest::keyClick(m_edit.get(), key, modifiers);
                paint();
            }));
        }
        return median(all);
    }

private:
    std::unique_ptr<QTextEdit> m_edit;
};

void openBare(QTextEdit &edit, const QByteArray &rich)
{
    auto *document = new QTextDocument(&edit);
    document->setDefaultFont(QFont(QStringLiteral("Liberation Sans"), 10));
    RtfReader::read(rich, *document);
    edit.setDocument(document);
}

/// In the middle of the tables of \a subject.
int cellPosition(Subject &subject)
{
    const QList<QTextFrame *> tables = subject.edit().document()->rootFrame()->childFrames();
    return tables.isEmpty() ? -1 : tables.at(tables.size() / 2)->firstPosition();
}

int paragraphAbove(Subject &subject, int cell)
{
    return subject.edit().document()->findBlock(cell).previous().previous().previous().position();
}

void benchTyping(Subject &box, Subject &bare)
{
    const int length = box.edit().document()->characterCount() - 1;
    const struct
    {
        const char *typing;
        const char *newParagraph;
        int position;
    } places[] = {{"key at the end", "Return at the end", length},
                  {"key in the middle", "Return in the middle", length / 2},
                  {"key at the top", "Return at the top", 5}};
    for (const auto &place : places) {
        box.moveTo(place.position);
        bare.moveTo(place.position);
        print(place.typing, box.key(Qt::Key_A), bare.key(Qt::Key_A));
        print(place.newParagraph, box.key(Qt::Key_Return), bare.key(Qt::Key_Return));
    }
    if (const int cell = cellPosition(box); cell >= 0) {
        box.moveTo(cell);
        bare.moveTo(cellPosition(bare));
        print("key in a middle table", box.key(Qt::Key_A), bare.key(Qt::Key_A));
        box.moveTo(paragraphAbove(box, cell));
        bare.moveTo(paragraphAbove(bare, cellPosition(bare)));
        print("key two paragraphs above it", box.key(Qt::Key_A), bare.key(Qt::Key_A));
    }
    box.moveTo(5);
    (void)box.key(Qt::Key_Return);
    print("the catching up in a pause", milliseconds([&] { (void)box.edit().document()->size(); }));
    box.moveTo(5);
    bare.moveTo(5);
    print("caret down", box.key(Qt::Key_Down), bare.key(Qt::Key_Down));
    print("page down", box.key(Qt::Key_PageDown), bare.key(Qt::Key_PageDown));
    print("Ctrl+End", box.key(Qt::Key_End, Qt::ControlModifier, 1),
          bare.key(Qt::Key_End, Qt::ControlModifier, 1));
}

double formatAll(Subject &subject, const Step &format)
{
    subject.moveTo(0);
    subject.edit().selectAll();
    subject.edit().verticalScrollBar()->setValue(0);
    return milliseconds([&] {
        format();
        subject.paint();
    });
}

double undo(Subject &subject)
{
    return milliseconds([&] {
        subject.edit().undo();
        subject.paint();
    });
}

void benchFormats(Subject &box, Subject &bare)
{
    auto &control = static_cast<RichTextBox &>(box.edit());
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    const double ours = formatAll(box, [&] { control.setSelBold(true); });
    print("bold on everything", ours, formatAll(bare, [&] { bare.edit().mergeCurrentCharFormat(bold); }));
    box.settle();
    print("undo of it", undo(box), undo(bare));
    box.settle();
    control.selectAll();
    print("states of all characters", milliseconds([&] { (void)control.SelBold(); }));
    print("the same again", milliseconds([&] { (void)control.SelItalic(); }));
    print("states of all paragraphs", milliseconds([&] { (void)control.SelBullet(); }));
    print("indent of everything", formatAll(box, [&] { control.setSelIndent(567); }));
    print("bullets on everything", formatAll(box, [&] { control.setSelBullet(true); }));
}

void bench(const QByteArray &rich, const QString &path)
{
    Subject box(std::make_unique<RichTextBox>());
    auto &control = static_cast<RichTextBox &>(box.edit());
    control.setAutoURLDetection(true);
    Subject bare(std::make_unique<QTextEdit>());
    const double opening = milliseconds([&] {
        control.LoadFile(path);
        box.paint();
    });
    std::printf("  %.1f MB of rich text, %d paragraphs\n  %-34s %8s %8s %7s\n", double(rich.size()) / 1e6,
                control.document()->blockCount(), "", "control", "bare", "ratio");
    print("open to the first page", opening, milliseconds([&] {
              openBare(bare.edit(), rich);
              bare.paint();
          }));
    box.settle();
    bare.settle();
    benchTyping(box, bare);
    benchFormats(box, bare);
}

void bench(const Mix &mix)
{
    const QByteArray rich = mixedRichText(mix);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("mixed.rtf")));
    if (!file.open(QFile::WriteOnly) || file.write(rich) != rich.size())
        return;
    file.close();
    std::printf("%s\n", mix.name);
    bench(rich, file.fileName());
}

void bench(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return;
    std::printf("%s\n", qUtf8Printable(path));
    bench(file.readAll(), path);
}

void benchLinks()
{
    constexpr int lines = 100000;
    const QString text = QStringLiteral("see https://example.org/page?number=1 for more\n").repeated(lines);
    std::printf("%d lines with an address\n", lines);
    Subject box(std::make_unique<RichTextBox>());
    auto &control = static_cast<RichTextBox &>(box.edit());
    const auto open = [&] {
        control.setText(text);
        box.paint();
    };
    const double without = milliseconds(open);
    control.setAutoURLDetection(true);
    print("open and paint with links, without", milliseconds(open), without);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc == 2) {
        bench(QFile::decodeName(argv[1]));
        return 0;
    }
    bench({"Large text", 75000, 4, 20});
    bench({"Many paragraphs", 100000, 2, 0});
    benchLinks();
    return 0;
}

#include "RichTextBox.h"

#include <QApplication>
#include <QBuffer>
#include <QRandomGenerator>
#include <QTest>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

// Typing at places drawn at random in 10 MB of rich text: in text, lists, cells and headings, beside pictures
// and tables.
//
//     QT_QPA_PLATFORM=offscreen bench_RandomPlaces [SEED [PLACES]]
//
// Milliseconds of the process from the event to the end of the painting, so that a busy machine does not
// count. Prints the median, the 99th percentile and the
// worst of keys and of Return, and where the worst was.

namespace {

constexpr int keysEach = 20;
constexpr int returnsEach = 2;

enum Kind { Text, List, Cell, BesideTable, Picture, Heading, KindCount };
constexpr std::array<const char *, KindCount> names = {"text",         "list",    "cell",
                                                       "beside table", "picture", "heading"};

QByteArray picture()
{
    QImage image(24, 24, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    image.save(&png, "PNG");
    return "{\\pict\\pngblip\\picwgoal360\\pichgoal360 " + png.data().toHex() + "}";
}

/// About 4 KB: a heading, paragraphs, one with a picture, items and a table.
QByteArray chapter(int number)
{
    const QByteArray words =
        "Plain words of a letter that goes on for some lines, {\\b bold} and {\\i italic}. ";
    QByteArray rich = "\\pard\\sb240\\sa120{\\b\\fs32 Heading " + QByteArray::number(number) + "}\\par\n";
    for (int i = 0; i < 10; ++i)
        rich += "\\pard " + words.repeated(1 + (number + i) % 5) + "\\par\n";
    rich += "\\pard " + words + picture() + words + "\\par\n";
    for (int i = 0; i < 5; ++i)
        rich += "\\pard{\\*\\pn\\pnlvlblt{\\pntxtb\\'95}}\\fi-240\\li240 item of a list\\par\n";
    if (number % 4 == 0) {
        for (int i = 0; i < 3; ++i)
            rich += "\\trowd\\cellx3000\\cellx6000\\pard\\intbl one cell\\cell another\\cell\\row\n";
    }
    return rich;
}

QByteArray document()
{
    constexpr int size = 10000000;
    QByteArray rich = "{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Sans;}}\\f0\\fs20\n";
    for (int number = 1; rich.size() < size; ++number)
        rich += chapter(number);
    return rich + "\\pard The end\\par}";
}

/// By the number of the paragraph: the cells, and what is beside a table.
QHash<int, Kind> aroundTables(const QTextDocument &document)
{
    QHash<int, Kind> kinds;
    for (const QTextFrame *table : document.rootFrame()->childFrames()) {
        const int first = document.findBlock(table->firstPosition()).blockNumber();
        const int last = document.findBlock(table->lastPosition()).blockNumber();
        for (int number = first; number <= last; ++number)
            kinds.insert(number, Cell);
        kinds.insert(first - 1, BesideTable);
        kinds.insert(last + 1, BesideTable);
    }
    return kinds;
}

Kind kindOf(const QTextBlock &block)
{
    if (block.textList())
        return List;
    if (block.text().contains(QChar::ObjectReplacementCharacter))
        return Picture;
    return block.blockFormat().topMargin() > 0 ? Heading : Text;
}

struct Time
{
    double milliseconds;
    Kind kind;
    int paragraph;
};

class Typist
{
public:
    Typist()
    {
        m_box.resize(800, 600);
        m_box.show();
        (void)QTest::qWaitForWindowExposed(&m_box);
        m_box.setAutoURLDetection(true);
        m_box.setTextRTF(document());
        const auto isLaidOut = [this] { return m_box.document()->lastBlock().layout()->lineCount() > 0; };
        (void)QTest::qWaitFor(isLaidOut, 60000);
        const QHash<int, Kind> kinds = aroundTables(*m_box.document());
        for (QTextBlock block = m_box.document()->begin(); block.isValid(); block = block.next()) {
            const auto known = kinds.constFind(block.blockNumber());
            m_paragraphs[known == kinds.cend() ? kindOf(block) : *known].append(block.blockNumber());
        }
    }

    void typeAt(Kind kind, QRandomGenerator &random)
    {
        const QList<int> &choice = m_paragraphs[kind];
        const int number = choice.at(random.bounded(int(choice.size())));
        const QTextBlock block = m_box.document()->findBlockByNumber(number);
        QTextCursor caret(block);
        caret.setPosition(block.position() + random.bounded(block.length()));
        m_box.setTextCursor(caret);
        m_box.viewport()->repaint();
        for (int i = 0; i < keysEach; ++i)
            keys.append({press(Qt::Key_A), kind, number});
        for (int i = 0; i < returnsEach; ++i)
            returns.append({press(Qt::Key_Return), kind, number});
        while (m_box.document()->blockCount() > m_count) // as before, so that the numbers stay right
            m_box.undo();
        (void)m_box.document()->size();
    }
    void begin() { m_count = m_box.document()->blockCount(); }
    int paragraphs() { return m_box.document()->blockCount(); }

    QList<Time> keys;
    QList<Time> returns;

private:
    double press(Qt::Key key)
    {
        const std::clock_t start = std::clock();
        QTest::keyClick(&m_box, key);
        m_box.viewport()->repaint();
        constexpr double perSecond = 1000;
        return double(std::clock() - start) * perSecond / CLOCKS_PER_SEC;
    }

    RichTextBox m_box;
    std::array<QList<int>, KindCount> m_paragraphs;
    int m_count = 0;
};

void print(const char *what, QList<Time> times)
{
    std::sort(times.begin(), times.end(),
              [](const Time &a, const Time &b) { return a.milliseconds < b.milliseconds; });
    const Time &worst = times.constLast();
    std::printf("  %-8s %8.1f %8.1f %8.1f   %s, paragraph %d\n", what,
                times.at(times.size() / 2).milliseconds, times.at(times.size() * 99 / 100).milliseconds,
                worst.milliseconds, names.at(worst.kind), worst.paragraph);
}

void printKinds(const char *what, const QList<Time> &times)
{
    for (int kind = 0; kind < KindCount; ++kind) {
        QList<Time> some;
        std::copy_if(times.cbegin(), times.cend(), std::back_inserter(some),
                     [kind](const Time &time) { return time.kind == kind; });
        if (!some.isEmpty())
            print(what, some);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const quint32 seed = argc > 1 ? QByteArray(argv[1]).toUInt() : 1;
    const int places = argc > 2 ? QByteArray(argv[2]).toInt() : 50;
    QRandomGenerator random(seed);
    Typist typist;
    typist.begin();
    std::printf("%d places in %d paragraphs, seed %u\n  %-8s %8s %8s %8s   %s\n", places, typist.paragraphs(),
                seed, "", "median", "99 %", "worst", "where the worst was");
    for (int i = 0; i < places; ++i)
        typist.typeAt(Kind(i % KindCount), random);
    print("key", typist.keys);
    print("Return", typist.returns);
    printKinds("key", typist.keys);
    printKinds("Return", typist.returns);
    return 0;
}

#include "RtfFlow.h"

#include "RtfTable.h"

RtfFlow::RtfFlow() = default;
RtfFlow::~RtfFlow() = default;
RtfFlow::RtfFlow(RtfFlow &&) noexcept = default;
RtfFlow &RtfFlow::operator=(RtfFlow &&) noexcept = default;

void RtfFlow::clear()
{
    text.resize(0); // keeps its memory
    runs.clear();
    items.clear();
    tables.clear();
}

void RtfFlow::addText(QStringView more, int format)
{
    text.append(more);
    endRun(format);
}

void RtfFlow::endRun(int format)
{
    const size_t paragraphStart = items.empty() ? 0 : size_t(items.back().runsEnd);
    if (runs.size() > paragraphStart && runs.back().format == format)
        runs.back().end = int(text.size());
    else
        runs.push_back({int(text.size()), format});
}

void RtfFlow::endParagraph(const Item &properties)
{
    Item item = properties;
    item.textEnd = int(text.size());
    item.runsEnd = int(runs.size());
    items.push_back(item);
}

void RtfFlow::addTable(std::unique_ptr<RtfTable> table)
{
    Item item;
    item.table = int(tables.size());
    tables.push_back(std::move(table));
    endParagraph(item);
}

void RtfFlow::append(RtfFlow &&other)
{
    const int textBefore = int(text.size());
    const int runsBefore = int(runs.size());
    const int tablesBefore = int(tables.size());
    text.append(other.text);
    for (Run run : other.runs) {
        run.end += textBefore;
        runs.push_back(run);
    }
    for (Item item : other.items) {
        item.textEnd += textBefore;
        item.runsEnd += runsBefore;
        if (item.table >= 0)
            item.table += tablesBefore;
        items.push_back(item);
    }
    for (std::unique_ptr<RtfTable> &table : other.tables)
        tables.push_back(std::move(table));
    other.clear();
}

RtfFlow RtfFlow::takeStart(int length)
{
    RtfFlow start;
    start.text = text.left(length);
    text.remove(0, length);
    std::vector<Run> left;
    int runStart = 0;
    for (const Run run : runs) {
        if (runStart < length)
            start.runs.push_back({qMin(run.end, length), run.format});
        if (run.end > length)
            left.push_back({run.end - length, run.format});
        runStart = run.end;
    }
    runs = std::move(left);
    return start;
}

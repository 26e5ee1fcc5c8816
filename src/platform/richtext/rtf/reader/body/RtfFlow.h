#pragma once

#include <QString>
#include <memory>
#include <vector>

struct RtfTable;

/// Paragraphs and tables, read but not yet put in a document.
struct RtfFlow
{
    struct Run
    {
        int end = 0; ///< in \a text
        int format = 0;
    };
    struct Item
    {
        int textEnd = 0;
        int runsEnd = 0;
        int format = 0;     ///< of the paragraph
        int markFormat = 0; ///< of the characters of its end
        int list = -1;      ///< RtfLists
        int table = -1;     ///< index in \a tables: the item is that table and no paragraph
    };

    QString text;
    std::vector<Run> runs;
    std::vector<Item> items;
    std::vector<std::unique_ptr<RtfTable>> tables;

    RtfFlow();
    ~RtfFlow();
    RtfFlow(RtfFlow &&) noexcept;
    RtfFlow &operator=(RtfFlow &&) noexcept;

    bool isEmpty() const { return items.empty(); }
    void clear();

    void addText(QStringView more, int format);
    /// Gives \a format to the text behind the last run.
    void endRun(int format);
    /// Ends a paragraph of what was added since the item before.
    void endParagraph(const Item &properties);
    void addTable(std::unique_ptr<RtfTable> table);
    void append(RtfFlow &&other);
    /// Takes the first \a length characters away from a flow without items.
    RtfFlow takeStart(int length);
};

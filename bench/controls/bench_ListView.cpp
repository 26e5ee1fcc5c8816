#include "ListView.h"
#include "Milliseconds.h"

#include <QApplication>
#include <QStandardItemModel>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <functional>

// Fills a table of 50,000 rows with an icon and five columns, from texts that are there already, until it is
// painted; then removes the rows. The list view beside Qt's own two ways, all in one process by turns.
//
//     QT_QPA_PLATFORM=offscreen bench_ListView
//
// Milliseconds, medians, and as multiples of the list view's.

namespace {

constexpr int rows = 50000;
constexpr int subItems = 4;
constexpr int columns = subItems + 1;
constexpr int rounds = 9;

struct Row
{
    QString key;
    QStringList texts;
};

struct Times
{
    double filling;
    double clearing;
};

using Texts = QList<Row>;
using Measure = std::function<Times(const Texts &, const QIcon &)>;

Texts makeTexts()
{
    Texts texts;
    texts.reserve(rows);
    for (int i = 1; i <= rows; ++i) {
        const QString number = QString::number(i);
        texts.append({QStringLiteral("File") + number,
                      {QStringLiteral("picture") + number + QStringLiteral(".jpg"), QString::number(i * 37),
                       QStringLiteral("12/05/2024 10:15"), QString::number(i * 29),
                       QStringLiteral("holiday/album") + number}});
    }
    return texts;
}

void showIn(QWidget &view)
{
    view.resize(900, 600);
    view.show();
    (void)QTest::qWaitForWindowExposed(&view);
}

template<class Fill, class Clear>
Times measure(QWidget &view, QWidget &viewport, Fill fill, Clear clear)
{
    showIn(view);
    const auto painted = [&](auto step) {
        return milliseconds([&] {
            step();
            viewport.repaint();
        });
    };
    const double filling = painted(fill);
    return {filling, painted(clear)};
}

Times listView(const Texts &texts, const QIcon &icon)
{
    ListView view;
    QList<ColumnHeader> headers;
    for (int i = 0; i < columns; ++i)
        headers.append({QString(), QString::number(i), 2400});
    view.setColumnHeaders(headers);
    const auto fill = [&] {
        std::vector<ListItem> items;
        items.reserve(rows);
        for (const Row &row : texts)
            items.push_back({row.key, row.texts.at(0), row.texts.mid(1), icon});
        view.ListItems().addItems(std::move(items));
    };
    return measure(view, *view.findChild<QTreeView *>()->viewport(), fill, [&] { view.ListItems().Clear(); });
}

Times treeWidget(const Texts &texts, const QIcon &icon)
{
    QTreeWidget view;
    view.setColumnCount(columns);
    view.setUniformRowHeights(true);
    const auto fill = [&] {
        QList<QTreeWidgetItem *> items;
        items.reserve(rows);
        for (const Row &row : texts) {
            auto *item = new QTreeWidgetItem(row.texts);
            item->setIcon(0, icon);
            item->setData(0, Qt::UserRole, row.key);
            items.append(item);
        }
        view.addTopLevelItems(items);
    };
    return measure(view, *view.viewport(), fill, [&] { view.clear(); });
}

Times standardItems(const Texts &texts, const QIcon &icon)
{
    QTreeView view;
    QStandardItemModel model(0, columns);
    view.setModel(&model);
    view.setUniformRowHeights(true);
    const auto fill = [&] {
        QList<QStandardItem *> firstColumn;
        firstColumn.reserve(rows);
        for (const Row &row : texts) {
            auto *item = new QStandardItem(icon, row.texts.at(0));
            item->setData(row.key);
            firstColumn.append(item);
        }
        model.invisibleRootItem()->appendRows(firstColumn);
        for (int i = 0; i < rows; ++i) {
            for (int column = 1; column < columns; ++column)
                model.setItem(i, column, new QStandardItem(texts.at(i).texts.at(column)));
        }
    };
    return measure(view, *view.viewport(), fill, [&] { model.removeRows(0, model.rowCount()); });
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const struct
    {
        const char *name;
        Measure measure;
    } ways[] = {{"ListView", listView},
                {"QTreeWidget", treeWidget},
                {"QTreeView with QStandardItemModel", standardItems}};
    const Texts texts = makeTexts();
    const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    QList<double> filling[std::size(ways)];
    QList<double> clearing[std::size(ways)];
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < std::size(ways); ++i) {
            const Times times = ways[i].measure(texts, icon);
            filling[i].append(times.filling);
            clearing[i].append(times.clearing);
        }
    }
    std::printf("%d rows of %d columns\n  %-36s %8s %8s %8s %8s\n", rows, columns, "", "fill", "ratio",
                "clear", "ratio");
    for (std::size_t i = 0; i < std::size(ways); ++i)
        std::printf("  %-36s %8.1f %8.2f %8.1f %8.2f\n", ways[i].name, median(filling[i]),
                    median(filling[i]) / median(filling[0]), median(clearing[i]),
                    median(clearing[i]) / median(clearing[0]));
    return 0;
}

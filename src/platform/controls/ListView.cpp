#include "ListView.h"

#include "EventGate.h"
#include "PlainTextDelegate.h"
#include "RowKeys.h"
#include "RuntimeError.h"
#include "ShownText.h"
#include "Twips.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QTreeView>
#include <algorithm>

namespace {

constexpr int largeIcons = 0;
constexpr int smallIcons = 1;
constexpr int plainList = 2;
constexpr int table = 3;

constexpr int largeColumn = 14; // width of a row shown as an icon, in characters
constexpr int smallColumn = 24; // the same
constexpr int largeLines = 2;

constexpr auto wholeRow = QItemSelectionModel::Rows;

} // namespace

ListView::ListView(QWidget *parent)
    : QStackedWidget(parent)
    , m_items(new ListItemsModel(this))
    , m_selection(new QItemSelectionModel(m_items, this))
    , m_table(new QTreeView(this))
    , m_icons(new QListView(this))
{
    buildTable();
    buildIcons();
    setView(table);
    on(m_items, &ListItemsModel::ItemCheck, this, &ListView::ItemCheck);
    on(m_selection, &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &current) {
        if (current.column() > 0) // typing looks in the first column, which all views have
            m_selection->setCurrentIndex(current.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    });
}

void ListView::buildTable()
{
    share(*m_table);
    m_table->setUniformRowHeights(true);
    m_table->setRootIsDecorated(false);
    m_table->setItemsExpandable(false);
    m_table->setAllColumnsShowFocus(true);
    m_table->header()->setStretchLastSection(false);
    m_table->header()->setSectionsMovable(false);
    m_table->header()->setSectionsClickable(true);
    on(m_table->header(), &QHeaderView::sectionClicked, this,
       [this](int section) { Q_EMIT ColumnClick(section + 1); });
}

void ListView::buildIcons()
{
    share(*m_icons);
    m_icons->setUniformItemSizes(true);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setLayoutMode(QListView::Batched);
}

void ListView::share(QAbstractItemView &pane)
{
    addWidget(&pane);
    pane.setModel(m_items);
    pane.setSelectionModel(m_selection);
    pane.setSelectionBehavior(QAbstractItemView::SelectRows);
    pane.setSelectionMode(QAbstractItemView::SingleSelection);
    pane.setEditTriggers(QAbstractItemView::NoEditTriggers);
    pane.setItemDelegate(new PlainTextDelegate(&pane));
    pane.installEventFilter(this);
    pane.viewport()->installEventFilter(this);
    on(&pane, &QAbstractItemView::clicked, this,
       [this](const QModelIndex &place) { Q_EMIT ItemClick(place.row() + 1); });
}

void ListView::setColumnHeaders(const QList<ColumnHeader> &headers)
{
    m_items->setColumnHeaders(headers);
    applyWidths(headers);
}

void ListView::setRows(const QList<ColumnHeader> &headers, std::unique_ptr<const ListRows> rows)
{
    m_items->setRows(headers, std::move(rows));
    applyWidths(headers);
}

void ListView::applyWidths(const QList<ColumnHeader> &headers)
{
    for (int i = 0; i < headers.size(); ++i)
        m_table->setColumnWidth(i, Twips::toPixels(headers.at(i).Width, logicalDpiX()));
}

void ListView::setView(int view)
{
    if (view < largeIcons || view > table)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_view = view;
    if (view != table)
        arrangeIcons();
    setCurrentWidget(&pane());
    setFocusProxy(&pane());
    pane().scrollTo(m_selection->currentIndex());
}

void ListView::setCheckboxes(bool shown)
{
    m_items->setCheckboxes(shown);
    if (m_view != table)
        arrangeIcons();
}

void ListView::arrangeIcons()
{
    const bool isLarge = m_view == largeIcons;
    const auto icon = isLarge ? QStyle::PM_LargeIconSize : QStyle::PM_SmallIconSize;
    const int iconSize = style()->pixelMetric(icon, nullptr, this);
    const int box = Checkboxes() ? style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) +
                                       style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, this)
                                 : 0;
    const int width = box + fontMetrics().averageCharWidth() * (isLarge ? largeColumn : smallColumn);
    const int margin = fontMetrics().height() / 2;
    const int line = fontMetrics().lineSpacing();
    m_icons->setViewMode(isLarge ? QListView::IconMode : QListView::ListMode);
    m_icons->setMovement(QListView::Static);
    m_icons->setFlow(m_view == plainList ? QListView::TopToBottom : QListView::LeftToRight);
    m_icons->setWrapping(true);
    m_icons->setWordWrap(isLarge);
    m_icons->setIconSize({iconSize, iconSize});
    m_icons->setGridSize(
        {width, isLarge ? iconSize + largeLines * line + margin : qMax(iconSize, line) + margin / 2});
}

QAbstractItemView &ListView::pane() const
{
    return m_view == table ? static_cast<QAbstractItemView &>(*m_table) : *m_icons;
}

bool ListView::MultiSelect() const
{
    return m_table->selectionMode() == QAbstractItemView::ExtendedSelection;
}

void ListView::setMultiSelect(bool multiSelect)
{
    for (QAbstractItemView *each :
         {static_cast<QAbstractItemView *>(m_table), static_cast<QAbstractItemView *>(m_icons)})
        each->setSelectionMode(multiSelect ? QAbstractItemView::ExtendedSelection
                                           : QAbstractItemView::SingleSelection);
}

ListItem ListView::SelectedItem() const
{
    const std::vector<bool> rows = selectedRows();
    const auto first = std::find(rows.cbegin(), rows.cend(), true);
    if (first == rows.cend())
        throw RuntimeError(ErrorNumber::ObjectNotSet);
    return m_items->Item(int(first - rows.cbegin()) + 1);
}

bool ListView::Selected(int index) const
{
    if (index < 1 || index > m_items->Count())
        throw RuntimeError(ErrorNumber::IndexOutOfBounds);
    return m_selection->isSelected(m_items->index(index - 1, 0));
}

void ListView::setSelected(int index, bool selected)
{
    if (selected == Selected(index))
        return;
    const QModelIndex place = m_items->index(index - 1, 0);
    if (!selected)
        m_selection->select(place, QItemSelectionModel::Deselect | wholeRow);
    else if (MultiSelect())
        m_selection->select(place, QItemSelectionModel::Select | wholeRow);
    else
        m_selection->setCurrentIndex(place, QItemSelectionModel::ClearAndSelect | wholeRow);
}

void ListView::selectAll()
{
    m_table->selectAll();
}

void ListView::invertSelection()
{
    const std::vector<bool> rows = selectedRows();
    QItemSelection inverse;
    const int last = m_items->columnCount() - 1;
    for (auto from = std::find(rows.cbegin(), rows.cend(), false); from != rows.cend();) {
        const auto to = std::find(from, rows.cend(), true);
        inverse.append(QItemSelectionRange(m_items->index(int(from - rows.cbegin()), 0),
                                           m_items->index(int(to - rows.cbegin()) - 1, last)));
        from = std::find(to, rows.cend(), false);
    }
    m_selection->select(inverse, QItemSelectionModel::ClearAndSelect);
}

std::vector<bool> ListView::selectedRows() const
{
    std::vector<bool> rows(std::size_t(m_items->Count()), false);
    for (const QItemSelectionRange &range : m_selection->selection())
        std::fill(rows.begin() + range.top(), rows.begin() + range.bottom() + 1, true);
    return rows;
}

bool ListView::eventFilter(QObject *watched, QEvent *event)
{
    bool isDone = false;
    run([&] {
        if (event->type() == QEvent::KeyPress && watched == &pane())
            isDone = actOnKey(*static_cast<QKeyEvent *>(event));
        else if (event->type() == QEvent::MouseButtonPress && watched == pane().viewport())
            Q_EMIT MouseDown(static_cast<QMouseEvent *>(event)->button());
        else if (event->type() == QEvent::MouseButtonDblClick && watched == pane().viewport())
            Q_EMIT DblClick();
    });
    return isDone || QStackedWidget::eventFilter(watched, event);
}

bool ListView::actOnKey(const QKeyEvent &event)
{
    const QWidget *focused = window()->focusWidget();
    Q_EMIT KeyDown(event.key());
    if (!isEnabled() || window()->focusWidget() != focused)
        return true; // the handler has waited, and the key is for no control that has the focus since then
    if (event.matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (event.key() == Qt::Key_Space && event.modifiers() == Qt::NoModifier && toggleCheck())
        return true;
    return RowKeys::handle(pane(), event);
}

bool ListView::toggleCheck()
{
    const QModelIndex current = m_selection->currentIndex();
    if (!Checkboxes() || !current.isValid())
        return false;
    const bool isChecked = m_items->isChecked(current.row() + 1);
    m_items->setData(current.siblingAtColumn(0), isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    return true;
}

void ListView::copy() const
{
    QStringList lines;
    const std::vector<bool> rows = selectedRows();
    for (int i = 1; i <= m_items->Count(); ++i) {
        if (rows[std::size_t(i) - 1])
            lines.append(line(m_items->Item(i)));
    }
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

QString ListView::line(const ListItem &item) const
{
    QString text = ShownText::line(item.Text);
    for (const QString &subItem : item.SubItems)
        text += u'\t' + ShownText::line(subItem);
    return text;
}

void ListView::showEvent(QShowEvent *event)
{
    run([&] {
        for (QWidget *each : {static_cast<QWidget *>(m_table), static_cast<QWidget *>(m_icons)})
            each->setAccessibleName(accessibleName()); // they are what has the focus
        QStackedWidget::showEvent(event);
    });
}

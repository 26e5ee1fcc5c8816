#include "DirListBox.h"

#include "EventGate.h"
#include "Folder.h"
#include "FolderRowsModel.h"
#include "NameDelegate.h"
#include "RuntimeError.h"

#include <QDir>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QStyle>

DirListBox::DirListBox(QWidget *parent)
    : QListView(parent)
    , m_rows(new FolderRowsModel(this))
{
    setModel(m_rows);
    setItemDelegate(new NameDelegate(this));
    setUniformItemSizes(true);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    setIconSize({icon, icon});
    setEditTriggers(NoEditTriggers);
    on(this, &QListView::doubleClicked, this, &DirListBox::open);
    try {
        list(QDir::homePath());
    } catch (const RuntimeError &) {
        list(QStringLiteral("/"));
    }
}

void DirListBox::setPath(const QString &path)
{
    const QString before = m_path;
    list(path);
    if (m_path != before)
        Q_EMIT Change();
}

void DirListBox::list(const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    m_rows->setFolder(clean, Folder::subfolders(clean, Folder::Hidden::Skip));
    m_path = clean;
    setCurrentIndex(folder());
    scrollTo(folder(), PositionAtCenter);
}

QModelIndex DirListBox::folder() const
{
    return m_rows->index(m_rows->folderRow());
}

void DirListBox::open(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    try {
        setPath(m_rows->pathAt(index.row()));
    } catch (const RuntimeError &) {
        return; // its icon says why
    }
}

/// The folder stays in view, also when the list gets its first place, unless the user has scrolled it away.
void DirListBox::resizeEvent(QResizeEvent *event)
{
    bool wasInView = false;
    run([&] {
        const QSize before = event->oldSize();
        const QRect row = visualRect(folder()); // already as wide as the new size
        wasInView = !before.isValid() || (row.top() >= 0 && row.bottom() < before.height());
    });
    QListView::resizeEvent(event);
    run([&] {
        executeDelayedItemsLayout();
        if (wasInView)
            scrollTo(folder());
    });
}

void DirListBox::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        run([&] { m_rows->forgetIcons(); });
}

void DirListBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        run([&] { open(currentIndex()); });
    else
        QListView::keyPressEvent(event);
}

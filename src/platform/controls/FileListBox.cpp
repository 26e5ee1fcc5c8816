#include "FileListBox.h"

#include "EventGate.h"
#include "Folder.h"
#include "NameDelegate.h"
#include "NameListModel.h"
#include "RowDrag.h"
#include "RowKeys.h"
#include "RuntimeError.h"

#include <QDir>
#include <QScrollBar>

FileListBox::FileListBox(QWidget *parent)
    : QListView(parent)
    , m_files(new NameListModel(this))
    , m_path(QDir::homePath())
{
    setModel(m_files);
    setItemDelegate(new NameDelegate(this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    Refresh();
}

QStringList FileListBox::readFiles(const QString &path) const
{
    return Folder::files(path, m_hidden ? Folder::Hidden::Include : Folder::Hidden::Skip);
}

void FileListBox::setPath(const QString &path)
{
    m_files->setNames(readFiles(path));
    m_path = QDir::cleanPath(path);
    scrollToTop();
}

void FileListBox::setHidden(bool hidden)
{
    m_hidden = hidden;
    Refresh();
}

QString FileListBox::FileName() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? QString() : m_files->names().value(selected.first().row());
}

int FileListBox::ListCount() const
{
    return m_files->rowCount();
}

QString FileListBox::List(int index) const
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(ErrorNumber::InvalidPropertyIndex, {}, objectName());
    return m_files->names()[index];
}

void FileListBox::Refresh()
{
    const QString selected = FileName();
    const int scrolled = verticalScrollBar()->value();
    try {
        m_files->setNames(readFiles(m_path));
    } catch (const RuntimeError &) {
        m_files->setNames({});
    }
    select(selected);
    verticalScrollBar()->setValue(scrolled);
}

void FileListBox::keyPressEvent(QKeyEvent *event)
{
    bool isDone = false;
    run([&] { isDone = RowKeys::handle(*this, *event); });
    if (!isDone)
        QListView::keyPressEvent(event);
}

/// The list is not deleted before the drag is over.
void FileListBox::startDrag(Qt::DropActions actions)
{
    run([&] { RowDrag::start(*this, actions); });
}

void FileListBox::select(const QString &name)
{
    const qsizetype row = name.isEmpty() ? -1 : m_files->names().indexOf(name);
    if (row >= 0)
        setCurrentIndex(m_files->index(int(row)));
}

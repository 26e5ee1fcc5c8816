#include "LocationBox.h"

#include "EventGate.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace {

constexpr int mostEntries = 500;
constexpr int carriageReturn = 13;

} // namespace

LocationBox::LocationBox(QWidget *parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon); // the window says how wide it is
    completer()->setCompletionMode(QCompleter::InlineCompletion);
    completer()->setCaseSensitivity(Qt::CaseSensitive); // as addresses are
    view()->setTextElideMode(Qt::ElideMiddle);
    // Qt would choose the entry whose text has been typed as soon as the focus leaves.
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
    on(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

/// The list's changes select another entry, and show it.
void LocationBox::keepText(const std::function<void()> &change)
{
    const QString text = currentText();
    change();
    setEditText(text);
}

void LocationBox::AddItem(const QString &text, int index)
{
    keepText([&] {
        insertItem(index, text);
        if (count() > mostEntries)
            removeItem(count() - 1);
    });
}

void LocationBox::RemoveItem(int index)
{
    keepText([&] { removeItem(index); });
}

void LocationBox::setListIndex(int index)
{
    setCurrentIndex(index);
    setEditText(itemText(index)); // also where the entry was the current one
    Q_EMIT Click();
}

int LocationBox::indexOf(const QString &text) const
{
    return findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

/// The box has the focus itself and hands its keys on to its line.
void LocationBox::keyPressEvent(QKeyEvent *event)
{
    bool isReturn = false;
    run([&] {
        isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isReturn)
            Q_EMIT KeyPress(carriageReturn);
    });
    if (!isReturn)
        QComboBox::keyPressEvent(event);
}

/// A page that is scrolled past the box's edge does not become another one.
void LocationBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

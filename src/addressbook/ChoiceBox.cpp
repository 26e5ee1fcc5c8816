#include "ChoiceBox.h"

#include "EventGate.h"

#include <QAbstractItemView>
#include <QLineEdit>

namespace {

constexpr int usualLength = 16; // characters; a long entry does not widen the box

} // namespace

ChoiceBox::ChoiceBox(QWidget *parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr); // it would turn "Bath" into "Bathgate"
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(usualLength);
    // Qt would choose the entry whose name has been typed as soon as the focus leaves.
    disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
    on(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

void ChoiceBox::setText(const QString &text)
{
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    setEditText(text);
}

void ChoiceBox::showPopup()
{
    QComboBox::showPopup();
    run([&] { selectNearest(); });
}

void ChoiceBox::selectNearest()
{
    if (currentText().isEmpty() || currentText() == itemText(currentIndex()))
        return;
    const int nearest = findText(currentText(), Qt::MatchStartsWith);
    if (nearest >= 0)
        view()->setCurrentIndex(model()->index(nearest, modelColumn()));
}

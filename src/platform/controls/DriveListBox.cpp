#include "DriveListBox.h"

#include "EventGate.h"
#include "ShownText.h"
#include "ThemeIcon.h"
#include "Volume.h"
#include "VolumeIcon.h"

#include <QDir>

namespace {

constexpr int leastLetters = 12;

} // namespace

DriveListBox::DriveListBox(QWidget *parent)
    : QComboBox(parent)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(leastLetters);
    fill(Volume::all());
    setCurrentIndex(findData(QDir::homePath()));
    connect(this, &QComboBox::activated, this, &DriveListBox::Change);
}

QString DriveListBox::Drive() const
{
    return currentData().toString();
}

void DriveListBox::showPopup()
{
    run([&] { fill(Volume::all()); });
    QComboBox::showPopup();
}

void DriveListBox::changeEvent(QEvent *event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        run([&] { fill(Volume::all()); });
}

/// A selected place that no longer exists stays in the list until another is chosen.
void DriveListBox::fill(const QList<Volume> &volumes)
{
    const QString path = Drive();
    const QString text = currentText();
    const QIcon icon = itemIcon(currentIndex());
    clear();
    for (const Volume &volume : volumes)
        add(volume);
    if (!path.isEmpty() && findData(path) < 0)
        addItem(icon, text, path);
    setCurrentIndex(findData(path));
}

void DriveListBox::add(const Volume &volume)
{
    const QString name = ShownText::line(volume.name);
    const QString path = ShownText::line(volume.path);
    addItem(ThemeIcon::named(VolumeIcon::nameOf(volume.kind)), QStringLiteral("%1 (%2)").arg(name, path),
            volume.path);
}

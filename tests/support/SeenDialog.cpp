#include "SeenDialog.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QChar placeToBreak(0x200B); // in long words

QString plain(QString caption)
{
    return caption.remove(u'&');
}

void addBox(SeenDialog &seen, const QMessageBox &box)
{
    seen.text = box.text().remove(placeToBreak);
    seen.icon = box.icon();
    for (const QAbstractButton *button : box.buttons())
        seen.buttons << plain(button->text());
    if (const QPushButton *button = box.defaultButton())
        seen.defaultButton = plain(button->text());
}

} // namespace

SeenDialog SeenDialog::of(const QWidget &window)
{
    SeenDialog seen;
    seen.objectName = window.objectName();
    seen.title = window.windowTitle();
    if (const auto *box = qobject_cast<const QMessageBox *>(&window))
        addBox(seen, *box);
    else if (const auto *prompt = window.findChild<QLabel *>(QStringLiteral("lblPrompt")))
        seen.text = prompt->text();
    return seen;
}

QString SeenDialog::describe() const
{
    return QStringLiteral("%1, title \"%2\", text \"%3\", buttons %4")
        .arg(objectName, title, text, buttons.join(u'/'));
}

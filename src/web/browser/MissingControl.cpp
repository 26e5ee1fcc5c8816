#include "MissingControl.h"

#include "Named.h"

#include <QLabel>
#include <QVBoxLayout>

MissingControl::MissingControl(const QString &reason, QWidget *parent)
    : WebControl(parent)
{
    auto *text = named<QLabel>(
        "lblMissing", QStringLiteral("Web pages cannot be shown, as Qt WebEngine is not installed or "
                                     "does not fit.\n\nInstall the package "
                                     "libqt6webenginewidgets6 and open this window again.\n\n") +
                          reason);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    (new QVBoxLayout(this))->addWidget(text);
}

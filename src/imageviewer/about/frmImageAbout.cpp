#include "frmImageAbout.h"

#include "Named.h"
#include "ThemeIcon.h"
#include "Version.h"
#include "WindowCommands.h"

#include <QGridLayout>
#include <QPushButton>

namespace {

constexpr int pictureSize = 48;   // pixels
constexpr int columnOfTexts = 28; // characters

} // namespace

frmImageAbout::frmImageAbout()
    : Form(QStringLiteral("frmImageAbout"))
{
    setCaption(QStringLiteral("About-Quill ImageViewer"));
    const QIcon icon = ThemeIcon::named(QStringLiteral("image-x-generic"));
    setWindowIcon(icon);
    auto *picture = new QLabel;
    picture->setPixmap(icon.pixmap({pictureSize, pictureSize}, devicePixelRatioF()));
    auto *title = named<QLabel>("lblTitle", QStringLiteral("Quill ImageViewer"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto *lblVersion = named<QLabel>("lblVersion", Version::text());
    auto *cmdClose = named<QPushButton>("cmdClose", QStringLiteral("Close"));
    auto *grid = new QGridLayout(this);
    grid->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(title, 0, 1);
    grid->addWidget(lblVersion, 1, 1, Qt::AlignTop);
    grid->addWidget(cmdClose, 2, 1, Qt::AlignRight);
    grid->setColumnMinimumWidth(1, columnOfTexts * fontMetrics().averageCharWidth());
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    setKeyButtons(*cmdClose, *cmdClose);
    WindowCommands::bind(*this, {{"cmdClose", &frmImageAbout::cmdClose_Click}});
}

void frmImageAbout::cmdClose_Click()
{
    unload();
}

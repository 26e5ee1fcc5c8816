#include "frmdownload2.h"

#include "CountingPause.h"
#include "EventGate.h"
#include "Globals.h"
#include "MainFrame.h"
#include "Named.h"
#include "ThemeIcon.h"
#include "UnzipResult.h"
#include "UpdateInstaller.h"
#include "UpdateServer.h"
#include "UpdateTexts.h"
#include "UpgradeFolder.h"
#include "WindowCommands.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>

namespace {

constexpr int pictureSize = 48; // pixels
constexpr int busySize = 22;    // pixels
constexpr int columns = 58;     // average characters of the text box
constexpr int rows = 9;         // lines of the text box

const QString versionFile = QStringLiteral("version.dat");
const QString listFile = QStringLiteral("updatefilelist.dat");
const QString package = QStringLiteral("updatefiles.zip");

/// Fetches the server's \a name and keeps it in the folder, as it came.
QByteArray fetchText(const QString &name)
{
    const QByteArray bytes = UpdateServer::fetchText(name);
    UpgradeFolder::write(name, bytes);
    return bytes;
}

} // namespace

frmdownload2::frmdownload2()
    : ChildForm(QStringLiteral("frmdownload2"))
    , Text1(named("Text1", new QPlainTextEdit(this), QStringLiteral("State of the update")))
    , cmdstart(named<QPushButton>("cmdstart", QStringLiteral("Start")))
    , cmdinstall(named<QPushButton>("cmdinstall", QStringLiteral("Install")))
    , OKButton(named<QPushButton>("OKButton", QStringLiteral("OK")))
    , cmdcancel(named<QPushButton>("cmdcancel", QStringLiteral("Cancel")))
    , QProGIF1(named<QLabel>("QProGIF1", QString(), QStringLiteral("Working")))
    , Image1(named<QLabel>("Image1", QString(), QStringLiteral("Software update")))
{
    setCaption(QStringLiteral("Check for Software Updates"));
    const QIcon icon = ThemeIcon::named(QStringLiteral("system-software-update"));
    setWindowIcon(icon);
    Image1->setPixmap(icon.pixmap({pictureSize, pictureSize}, devicePixelRatioF()));
    QProGIF1->setPixmap(
        ThemeIcon::named(QStringLiteral("view-refresh")).pixmap({busySize, busySize}, devicePixelRatioF()));
    Text1->setReadOnly(true);
    Text1->setTabChangesFocus(true);
    layOut();
    setFocusProxy(cmdstart);
    setCancelButton(*cmdcancel);
    WindowCommands::bind(*this, {{"cmdstart", &frmdownload2::cmdstart_Click},
                                 {"cmdinstall", &frmdownload2::cmdinstall_Click},
                                 {"OKButton", &frmdownload2::OKButton_Click},
                                 {"cmdcancel", &frmdownload2::cmdcancel_Click}});
}

QSize frmdownload2::sizeHint() const
{
    return layout()->sizeHint();
}

void frmdownload2::layOut()
{
    const QFontMetrics metrics = Text1->fontMetrics();
    Text1->setMinimumSize(columns * metrics.averageCharWidth(), rows * metrics.lineSpacing());
    auto *pictures = new QVBoxLayout;
    pictures->addWidget(Image1);
    pictures->addWidget(QProGIF1, 0, Qt::AlignHCenter);
    pictures->addStretch();
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *button : {cmdstart, cmdinstall, OKButton, cmdcancel})
        buttons->addWidget(button);
    auto *grid = new QGridLayout(this);
    grid->addLayout(pictures, 0, 0);
    grid->addWidget(Text1, 0, 1);
    grid->addLayout(buttons, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(0, 1);
}

void frmdownload2::Form_Load()
{
    Text1->setPlainText(UpdateTexts::start());
    showOnly({cmdstart, cmdcancel});
    setBusy(false);
}

void frmdownload2::cmdstart_Click()
{
    try {
        check();
    } catch (...) {
        fail();
    }
}

void frmdownload2::check()
{
    showOnly({cmdcancel});
    UpgradeFolder::clear();
    setBusy(true);
    show(UpdateTexts::progress(QStringLiteral("Checking for updates.....")));
    CountingPause::run();
    const QByteArray fetched = fetchText(versionFile);
    CountingPause::run();
    showOnly({});
    const VersionFile file(fetched);
    show(UpdateTexts::versions(file.version()));
    setBusy(false);
    CountingPause::run();
    showResult(file);
}

void frmdownload2::showResult(const VersionFile &file)
{
    const bool isNew = file.version().isNew();
    show(isNew ? UpdateTexts::newVersion(file) : UpdateTexts::upToDate(file));
    if (isNew)
        offer({cmdinstall, cmdcancel});
    else
        offer({OKButton});
}

void frmdownload2::cmdinstall_Click()
{
    try {
        install();
    } catch (...) {
        fail();
    }
}

void frmdownload2::install()
{
    showOnly({cmdcancel});
    setBusy(true);
    show(UpdateTexts::progress(QStringLiteral("Downloading File(s).....")));
    CountingPause::run();
    const QByteArray list = fetchText(listFile);
    CountingPause::run();
    const QList<UpdateFile> files = UpdateFileList::read(list);
    download(files);
    if (const UpdateFile *wrong = firstWrong(files)) {
        CountingPause::run();
        show(UpdateTexts::wrongLength(Text1->toPlainText(), *wrong));
        return offer({OKButton, cmdcancel}); // Intended: the busy picture stays
    }
    CountingPause::run();
    show(UpdateTexts::extracting());
    if (!unpack())
        return fail();
    CountingPause::run();
    setBusy(false);
    show(UpdateTexts::launching());
    handOver();
}

void frmdownload2::download(const QList<UpdateFile> &files)
{
    int number = 0;
    for (const UpdateFile &file : files) {
        show(UpdateTexts::downloading(++number, file));
        UpgradeFolder::write(file.name, UpdateServer::fetchFile(file.name));
        CountingPause::run();
    }
}

const UpdateFile *frmdownload2::firstWrong(const QList<UpdateFile> &files)
{
    show(UpdateTexts::progress(QStringLiteral("Checking Downloaded Files.....")));
    for (const UpdateFile &file : files) {
        CountingPause::run();
        const qint64 length = UpgradeFolder::length(file.name);
        show(UpdateTexts::length(file, length));
        if (!file.hasSize(length))
            return &file;
        CountingPause::run();
    }
    return nullptr;
}

bool frmdownload2::unpack()
{
    return UpgradeFolder::unpack(package) == UnzipResult::Success;
}

void frmdownload2::handOver()
{
    showOnly({});
    UpdateInstaller::start();
    mainFrame->mnuFileExit_Click();
}

void frmdownload2::OKButton_Click()
{
    unload();
}

void frmdownload2::cmdcancel_Click()
{
    unload();
}

void frmdownload2::show(const QString &text)
{
    Text1->setPlainText(text);
    repaint(); // with what the step has hidden and shown
    Text1->viewport()->repaint();
}

void frmdownload2::setBusy(bool busy)
{
    QProGIF1->setVisible(busy);
}

void frmdownload2::showOnly(std::initializer_list<QPushButton *> buttons)
{
    for (QPushButton *button : {cmdstart, cmdinstall, OKButton, cmdcancel})
        button->setVisible(std::find(buttons.begin(), buttons.end(), button) != buttons.end());
}

void frmdownload2::offer(std::initializer_list<QPushButton *> buttons)
{
    processPendingEvents();
    showOnly(buttons);
    if (isLoaded())
        (*buttons.begin())->setFocus();
}

void frmdownload2::fail()
{
    processPendingEvents();
    OKButton->show();
    show(UpdateTexts::error());
    setBusy(false);
    OKButton->setFocus();
}

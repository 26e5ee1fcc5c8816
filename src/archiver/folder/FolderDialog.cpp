#include "FolderDialog.h"

#include "Ask.h"
#include "EventGate.h"
#include "FileNames.h"
#include "Folder.h"
#include "FolderDialogOptions.h"
#include "FolderTreeModel.h"
#include "InputBox.h"
#include "Named.h"
#include "PlainTextDelegate.h"
#include "RuntimeError.h"
#include "ShownText.h"
#include "ThemeIcon.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <cerrno>
#include <sys/stat.h>

namespace {

constexpr QSize firstSize(420, 460); // pixels
constexpr mode_t allRights = 0777;   // less what the user's mask takes away

bool exists(const QString &path)
{
    struct stat state = {};
    return ::stat(FileNames::toBytes(path).constData(), &state) == 0;
}

} // namespace

FolderDialog::FolderDialog(const FolderDialogOptions &options)
    : QDialog(options.hwndOwner)
    , m_options(options)
    , m_folders(new FolderTreeModel(options.RootDir,
                                    options.IncludeFiles ? FolderTreeModel::Content::FoldersAndFiles
                                                         : FolderTreeModel::Content::Folders,
                                    this))
    , tvwFolders(named("tvwFolders", new QTreeView, QStringLiteral("Folders")))
    , lblStatus(named("lblStatus", new QLabel))
    , txtFolder(named<QLineEdit>("txtFolder", QStringLiteral("Folder")))
    , cmdNewFolder(named<QPushButton>("cmdNewFolder", QStringLiteral("&New Folder...")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("OK")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("Cancel")))
{
    setObjectName(QStringLiteral("FolderDialog"));
    setWindowTitle(ShownText::line(options.Title));
    buildTree();
    layOut();
    cmdOK->setDefault(true);
    cmdNewFolder->setAutoDefault(false);
    on(tvwFolders->selectionModel(), &QItemSelectionModel::currentChanged, this,
       &FolderDialog::tvwFolders_SelectionChanged);
    on(txtFolder, &QLineEdit::textEdited, this, &FolderDialog::txtFolder_Change);
    on(cmdNewFolder, &QPushButton::clicked, this, &FolderDialog::cmdNewFolder_Click);
    on(cmdOK, &QPushButton::clicked, this, &FolderDialog::accept);
    on(cmdCancel, &QPushButton::clicked, this, &FolderDialog::reject);
}

void FolderDialog::buildTree()
{
    tvwFolders->setModel(m_folders);
    tvwFolders->setItemDelegate(new PlainTextDelegate(tvwFolders));
    tvwFolders->setHeaderHidden(true);
    tvwFolders->setUniformRowHeights(true);
}

void FolderDialog::layOut()
{
    auto *lblFolder = named<QLabel>("lblFolder", QStringLiteral("&Folder:"));
    lblFolder->setBuddy(txtFolder);
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setMinimumWidth(1); // a long path is cut
    auto *typing = new QHBoxLayout;
    typing->addWidget(lblFolder);
    typing->addWidget(txtFolder, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdNewFolder);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *column = new QVBoxLayout(this);
    column->addWidget(lblStatus);
    column->addWidget(tvwFolders, 1);
    column->addLayout(typing);
    column->addLayout(buttons);
    lblStatus->setVisible(m_options.StatusText);
    lblFolder->setVisible(m_options.EditBox);
    txtFolder->setVisible(m_options.EditBox);
    cmdNewFolder->setVisible(m_options.UseNewUI);
    resize(firstSize);
}

void FolderDialog::selectFirst()
{
    select(m_options.RootDir.isEmpty() ? QDir::homePath() : m_options.RootDir);
    if (!m_options.InitialDir.isEmpty())
        select(m_options.InitialDir);
    tvwFolders->setFocus();
}

void FolderDialog::select(const QString &path)
{
    const QModelIndex place = m_folders->indexOf(path);
    if (!place.isValid())
        return;
    tvwFolders->setCurrentIndex(place);
    if (m_folders->canFetchMore(place))
        m_folders->fetchMore(place);
    if (m_folders->hasChildren(place)) // else a new folder would be shown with a mark for those in it
        tvwFolders->expand(place);
    tvwFolders->scrollTo(place, QAbstractItemView::PositionAtCenter);
}

void FolderDialog::setStatus(const QString &text)
{
    lblStatus->setText(ShownText::line(text));
}

QString FolderDialog::selectedPath() const
{
    return m_folders->pathAt(tvwFolders->currentIndex());
}

bool FolderDialog::hasTyped() const
{
    return m_isTyped && !txtFolder->text().trimmed().isEmpty();
}

QString FolderDialog::path() const
{
    if (!hasTyped())
        return selectedPath();
    const QString typed = txtFolder->text().trimmed();
    return QDir::cleanPath(typed.startsWith(u'/') ? typed : Folder::join(selectedPath(), typed));
}

void FolderDialog::tvwFolders_SelectionChanged()
{
    const QString path = selectedPath();
    m_isTyped = false;
    txtFolder->setText(ShownText::line(path));
    setStatus(path);
    bool allowOk = true;
    Q_EMIT SelectionChanged(path, allowOk);
    cmdOK->setEnabled(allowOk);
}

void FolderDialog::txtFolder_Change()
{
    m_isTyped = true;
    cmdOK->setEnabled(true);
}

void FolderDialog::accept()
{
    run([&] {
        if (!cmdOK->isEnabled())
            return;
        if (m_options.ValidateEditBox && hasTyped() && !exists(path()))
            refuseTypedPath();
        else
            QDialog::accept();
    });
}

void FolderDialog::refuseTypedPath()
{
    cmdOK->setEnabled(false);
    setStatus(QStringLiteral("Path invalid: ") + txtFolder->text());
    bool keepOpen = false;
    Q_EMIT ValidationFailed(txtFolder->text(), keepOpen);
    if (!keepOpen)
        reject();
}

void FolderDialog::cmdNewFolder_Click()
{
    const QString title = QStringLiteral("New Folder");
    const QString name = InputBox(QStringLiteral("Enter new folder name"), title).trimmed();
    if (name.isEmpty())
        return;
    const QString path = Folder::join(selectedPath(), name);
    if (::mkdir(FileNames::toBytes(path).constData(), allRights) == 0)
        select(path);
    else
        Ask(RuntimeError::fromErrno(errno, path).description(), MsgBoxStyle::Exclamation, title);
}

#include "CommonDialog.h"
#include "ElidedLabel.h"
#include "Forms.h"
#include "Named.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"
#include "WindowIcons.h"
#include "frmFileOperations.h"
#include "frmImageMain.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace {

QLabel *head(const char *name, const QString &caption)
{
    auto *label = named<QLabel>(name, caption);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QLabel *shown(const char *name, const QString &text, const QString &spoken)
{
    auto *label = named(name, new ElidedLabel(text), spoken);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

frmFileOperations::frmFileOperations()
    : Form(QStringLiteral("frmFileOperations"))
    , m_viewerDialog(Forms::refer<frmImageMain>().FileDialog())
    , m_icons(new WindowIcons(*this))
    , lblName(shown("lblName", QStringLiteral("No File Loaded"), QStringLiteral("File Name")))
    , lblSize(shown("lblSize", QStringLiteral("0 Bytes"), QStringLiteral("File Size")))
    , lblModified(shown("lblModified", QStringLiteral("--/--/---- --:--:-- --"),
                        QStringLiteral("Last Modified/Created")))
    , lblAttr(shown("lblAttr", QStringLiteral("No File Loaded"), QStringLiteral("Attributes")))
    , chkNormal(box("chkNormal", QStringLiteral("Normal")))
    , chkReadOnly(box("chkReadOnly", QStringLiteral("Read-Only")))
    , chkHidden(box("chkHidden", QStringLiteral("Hidden")))
    , chkArchive(box("chkArchive", QStringLiteral("Archive")))
    , chkSystem(box("chkSystem", QStringLiteral("System")))
    , chkTemporary(box("chkTemporary", QStringLiteral("Temporary")))
    , cmdApply(button("cmdApply", QStringLiteral("Apply Attributes"), "dialog-ok-apply"))
    , cmdLoad(button("cmdLoad", QStringLiteral("Load File..."), "document-open"))
    , cmdCopy(button("cmdCopy", QStringLiteral("Copy File..."), "edit-copy"))
    , cmdMove(button("cmdMove", QStringLiteral("Move File..."), "edit-move"))
    , cmdDelete(button("cmdDelete", QStringLiteral("Delete File"), "edit-delete"))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("Close")))
{
    setCaption(QStringLiteral("File Properties/Operations"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("document-properties")));
    auto *column = new QVBoxLayout(this);
    column->addWidget(head("Label1", QStringLiteral(" File Details")));
    column->addWidget(buildDetails());
    column->addWidget(head("Label3", QStringLiteral(" File Operations")));
    column->addWidget(buildAttributes());
    column->addStretch();
    column->addLayout(buildOperations());
    setKeyButtons(*cmdOK, *cmdOK);
    setFocusProxy(cmdOK);
    bind();
}

QPushButton *frmFileOperations::button(const char *name, const QString &caption, const char *icon)
{
    auto *button = named<QPushButton>(name, caption);
    m_icons->add(*button, QString::fromLatin1(icon));
    return button;
}

QCheckBox *frmFileOperations::box(const char *name, const QString &caption)
{
    return named<QCheckBox>(name, caption);
}

QWidget *frmFileOperations::buildDetails()
{
    auto *details = new QWidget;
    auto *grid = new QGridLayout(details);
    const auto row = [&](const char *name, const QString &caption, QLabel *shown) {
        const int next = grid->rowCount();
        grid->addWidget(named<QLabel>(name, caption), next, 0);
        grid->addWidget(shown, next, 1);
    };
    row("lblFileName", QStringLiteral("File Name:"), lblName);
    row("Label7", QStringLiteral("File Size:"), lblSize);
    row("Label2", QStringLiteral("Last Modified/Created:"), lblModified);
    row("Label4", QStringLiteral("Attributes:"), lblAttr);
    grid->setColumnStretch(1, 1);
    return details;
}

QWidget *frmFileOperations::buildAttributes()
{
    auto *attributes = new QWidget;
    auto *grid = new QGridLayout(attributes);
    grid->addWidget(chkNormal, 0, 0);
    grid->addWidget(chkReadOnly, 0, 1);
    grid->addWidget(chkHidden, 0, 2);
    grid->addWidget(chkArchive, 1, 0);
    grid->addWidget(chkSystem, 1, 1);
    grid->addWidget(chkTemporary, 1, 2);
    grid->addWidget(cmdApply, 0, 4, 2, 1);
    grid->setColumnStretch(3, 1);
    return attributes;
}

QLayout *frmFileOperations::buildOperations()
{
    auto *row = new QHBoxLayout;
    for (QPushButton *button : {cmdLoad, cmdCopy, cmdMove, cmdDelete})
        row->addWidget(button);
    row->addStretch();
    row->addWidget(cmdOK);
    return row;
}

void frmFileOperations::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmdLoad", &frmFileOperations::cmdLoad_Click},
                                    {"cmdApply", &frmFileOperations::cmdApply_Click},
                                    {"chkNormal", &frmFileOperations::chkNormal_Click},
                                    {"cmdCopy", &frmFileOperations::cmdCopy_Click},
                                    {"cmdMove", &frmFileOperations::cmdMove_Click},
                                    {"cmdDelete", &frmFileOperations::cmdDelete_Click},
                                    {"cmdOK", &frmFileOperations::cmdOK_Click},
                                });
}

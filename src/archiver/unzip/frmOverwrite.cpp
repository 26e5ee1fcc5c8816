#include "frmOverwrite.h"

#include "Named.h"
#include "Prompts.h"
#include "ShownText.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace {

constexpr int iconSize = 32;       // pixels
constexpr int charactersWide = 52; // of the question

/// \a text with places where a line may end in words that are wider than \a width, as many names are.
QString breakable(const QString &text, const QFontMetrics &metrics, int width)
{
    constexpr QChar breakHere(0x200B);
    QString broken;
    qsizetype wordStart = 0;
    for (const QChar character : text) {
        const QString word = broken.sliced(wordStart) + character;
        if (metrics.horizontalAdvance(word) > width && !character.isLowSurrogate() && !character.isMark()) {
            broken += breakHere;
            wordStart = broken.size();
        }
        broken += character;
        if (character == u' ')
            wordStart = broken.size();
    }
    return broken;
}

} // namespace

frmOverwrite::frmOverwrite()
    : Form(QStringLiteral("frmOverwrite"))
    , lblCaption(named("lblCaption", new QLabel))
    , chkAllFiles(named<QCheckBox>("chkAllFiles", QStringLiteral("&Apply to All Files")))
    , m_response(MsgBoxReply::Cancel)
{
    setCaption(QStringLiteral("File Exists"));
    const QIcon icon = ThemeIcon::named(QStringLiteral("dialog-question"));
    setWindowIcon(icon);
    auto *imgIcon = named("imgIcon", new QLabel);
    imgIcon->setPixmap(icon.pixmap({iconSize, iconSize}, devicePixelRatioF()));
    lblCaption->setTextFormat(Qt::PlainText);
    lblCaption->setWordWrap(true);
    lblCaption->setFixedWidth(charactersWide * fontMetrics().averageCharWidth());
    auto *cmdYes = named<QPushButton>("cmdYes", QStringLiteral("&Yes"));
    auto *cmdNo = named<QPushButton>("cmdNo", QStringLiteral("&No"));
    auto *cmdCancel = named<QPushButton>("cmdCancel", QStringLiteral("Cancel"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *button : {cmdYes, cmdNo, cmdCancel})
        buttons->addWidget(button);
    auto *grid = new QGridLayout(this);
    grid->addWidget(imgIcon, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(lblCaption, 0, 1);
    grid->addWidget(chkAllFiles, 1, 1);
    grid->addLayout(buttons, 2, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    cmdYes->setFocus();
    setKeyButtons(*cmdYes, *cmdCancel);
    WindowCommands::bind(*this, {
                                    {"cmdYes", &frmOverwrite::cmdYes_Click},
                                    {"cmdNo", &frmOverwrite::cmdNo_Click},
                                    {"cmdCancel", &frmOverwrite::cmdCancel_Click},
                                });
}

void frmOverwrite::setTheCaption(const QString &caption)
{
    m_caption = caption;
    lblCaption->setText(breakable(ShownText::line(caption), lblCaption->fontMetrics(), lblCaption->width()));
    setAccessibleDescription(ShownText::line(caption));
}

bool frmOverwrite::ApplyToAll() const
{
    return chkAllFiles->isChecked();
}

void frmOverwrite::cmdYes_Click()
{
    answer(MsgBoxReply::Yes);
}

void frmOverwrite::cmdNo_Click()
{
    answer(MsgBoxReply::No);
}

void frmOverwrite::cmdCancel_Click()
{
    answer(MsgBoxReply::Cancel);
}

void frmOverwrite::answer(int response)
{
    m_response = response;
    unload();
}

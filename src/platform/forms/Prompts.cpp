#include "Prompts.h"

#include "Paths.h"
#include "PromptOwner.h"
#include "ShowDialog.h"
#include "ShownText.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <memory>

namespace {

constexpr int buttonBits = 0x0f;
constexpr int iconBits = 0x70;

/// A question that only Yes or No answers: left by Escape it would take No, and No may discard a document.
class YesNoBox : public QMessageBox
{
public:
    explicit YesNoBox(QWidget *owner)
        : QMessageBox(owner)
    {
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint); // no close button
    }

protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() != Qt::Key_Escape)
            QMessageBox::keyPressEvent(event);
    }
};

bool has(MsgBoxStyle style, MsgBoxStyle flag)
{
    return (int(style) & int(flag)) == int(flag);
}

/// The buttons of \a style in their order.
QList<QMessageBox::StandardButton> buttonsOf(MsgBoxStyle style)
{
    switch (MsgBoxStyle(int(style) & buttonBits)) {
    case MsgBoxStyle::YesNo:
        return {QMessageBox::Yes, QMessageBox::No};
    case MsgBoxStyle::OkCancel:
        return {QMessageBox::Ok, QMessageBox::Cancel};
    default:
        return {QMessageBox::Ok};
    }
}

int replyOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return MsgBoxReply::Yes;
    case QMessageBox::No:
        return MsgBoxReply::No;
    case QMessageBox::Cancel:
        return MsgBoxReply::Cancel;
    default:
        return MsgBoxReply::Ok;
    }
}

void addButtons(QMessageBox &box, MsgBoxStyle style)
{
    const auto buttons = buttonsOf(style);
    for (const QMessageBox::StandardButton button : buttons)
        box.addButton(button);
    box.setDefaultButton(has(style, MsgBoxStyle::DefaultButton2) ? buttons.last() : buttons.first());
}

QMessageBox::Icon iconOf(MsgBoxStyle style)
{
    switch (MsgBoxStyle(int(style) & iconBits)) {
    case MsgBoxStyle::Critical:
        return QMessageBox::Critical;
    case MsgBoxStyle::Question:
        return QMessageBox::Question;
    case MsgBoxStyle::Exclamation:
        return QMessageBox::Warning;
    case MsgBoxStyle::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// Makes \a box so wide that its title bar fits the title, in whatever font, and for its buttons.
void fitTitle(QMessageBox &box)
{
    constexpr int frame = 120; // pixels
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + frame;
    // The box sets its own size to what its layout needs; a minimum size would not last.
    auto *grid = static_cast<QGridLayout *>(box.layout());
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

/// \a text with places to break in words that are longer than a line, such as file names without blanks; the
/// box would be wider than the screen.
QString breakable(const QString &text)
{
    constexpr int longest = 60; // characters
    constexpr QChar placeToBreak(0x200B);
    QString result;
    int length = 0;
    for (const QChar character : text) {
        length = character.isSpace() ? 0 : length + 1;
        if (length > longest && !character.isLowSurrogate() && !character.isMark()) {
            result += placeToBreak;
            length = 1;
        }
        result += character;
    }
    return result;
}

/// As much of \a text as a screen has room for; the buttons of a longer box could not be reached.
QString bounded(const QString &text)
{
    constexpr int mostLines = 30;
    constexpr int mostCharacters = 2000;
    qsizetype end = -1;
    for (int line = 0; line < mostLines; ++line) {
        end = text.indexOf(u'\n', end + 1);
        if (end < 0)
            break;
    }
    end = end < 0 ? mostCharacters : qMin<qsizetype>(end, mostCharacters);
    return end < text.size() ? text.left(end) + QChar(0x2026) : text;
}

/// Shows \a box and returns the button pressed.
int ask(std::unique_ptr<QMessageBox> box, const QString &text, MsgBoxStyle style, const QString &title)
{
    box->setObjectName(QStringLiteral("MsgBox"));
    box->setWindowTitle(ShownText::line(title.isEmpty() ? Paths::applicationTitle : title));
    box->setTextFormat(Qt::PlainText);
    box->setText(breakable(bounded(ShownText::lines(text))));
    box->setIcon(iconOf(style));
    addButtons(*box, style);
    fitTitle(*box);
    return showDialog(*box);
}

} // namespace

int MsgBox(const QString &text, MsgBoxStyle style, const QString &title)
{
    std::unique_ptr<QMessageBox> box(has(style, MsgBoxStyle::YesNo) ? new YesNoBox(promptOwner())
                                                                    : new QMessageBox(promptOwner()));
    return replyOf(ask(std::move(box), text, style, title));
}

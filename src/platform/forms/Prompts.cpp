#include "Prompts.h"

#include "Paths.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>

namespace {

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

QWidget *owner()
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

/// Makes \a box so wide that its title bar has room for the title, in whatever font, and for its buttons.
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

/// Shows \a box and deletes it, unless its owner went first. Returns the button pressed.
int ask(QPointer<QMessageBox> box, const QString &text, MsgBoxStyle style, const QString &title)
{
    box->setObjectName(QStringLiteral("MsgBox"));
    box->setWindowTitle(title.isEmpty() ? Paths::applicationTitle : title);
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setIcon(iconOf(style));
    fitTitle(*box);
    const int button = box->exec();
    delete box;
    return button;
}

} // namespace

int MsgBox(const QString &text, MsgBoxStyle style, const QString &title)
{
    if (!has(style, MsgBoxStyle::YesNo)) {
        auto *box = new QMessageBox(owner());
        box->setStandardButtons(QMessageBox::Ok);
        ask(box, text, style, title);
        return MsgBoxReply::Ok;
    }
    auto *box = new YesNoBox(owner());
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::Yes);
    return ask(box, text, style, title) == QMessageBox::Yes ? MsgBoxReply::Yes : MsgBoxReply::No;
}

#include "ShowDialog.h"

#include "EventGate.h"
#include "RunningHandler.h"

#include <QChildEvent>
#include <QMessageBox>

namespace {

/// Has the questions that one of Qt's dialogs asks by itself show the names of files as they are: by default
/// what is in angle brackets there is markup.
class PlainQuestions : public QObject
{
public:
    bool eventFilter(QObject *dialog, QEvent *event) override
    {
        if (event->type() == QEvent::ChildPolished)
            run([&] { showPlain(static_cast<QChildEvent *>(event)->child()); });
        return QObject::eventFilter(dialog, event);
    }

private:
    static void showPlain(QObject *child)
    {
        if (auto *box = qobject_cast<QMessageBox *>(child))
            box->setTextFormat(Qt::PlainText);
    }
};

} // namespace

int showDialog(QDialog &dialog)
{
    const RunningHandler running;
    PlainQuestions questions;
    dialog.installEventFilter(&questions);
    return dialog.exec();
}

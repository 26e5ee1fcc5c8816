#include "ShowDialog.h"

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
        if (event->type() == QEvent::ChildPolished) {
            if (auto *box = qobject_cast<QMessageBox *>(static_cast<QChildEvent *>(event)->child()))
                box->setTextFormat(Qt::PlainText);
        }
        return QObject::eventFilter(dialog, event);
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

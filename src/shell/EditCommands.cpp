#include "EditCommands.h"

#include "DocumentText.h"
#include "ErrorReports.h"
#include "RichTextBox.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMetaMethod>

namespace {

enum class Effect { Reads, Changes };

/// The control that holds the text of \a control: combo and spin boxes take the focus for a line edit inside.
QWidget *textControlOf(QWidget *control)
{
    if (qobject_cast<QComboBox *>(control) || qobject_cast<QAbstractSpinBox *>(control))
        return control->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
    return control;
}

/// Text controls have these operations under the same names, but no common class.
QMetaMethod operationOf(const QWidget &control, const char *operation)
{
    const QMetaObject &type = *control.metaObject();
    return type.method(type.indexOfMethod(operation));
}

/// What shows a web page is several widgets deep; the control around them has the operations.
void callFocused(const char *operation, Effect effect)
{
    QWidget *control = textControlOf(QApplication::focusWidget());
    while (control && !operationOf(*control, operation).isValid())
        control = control->parentWidget();
    if (!control || (effect == Effect::Changes && control->property("readOnly").toBool()))
        return;
    operationOf(*control, operation).invoke(control);
}

void assignClipboard()
{
    const QString text = QGuiApplication::clipboard()->text();
    RichTextBox &document = DocumentText::ofActiveForm();
    if (!document.Locked())
        document.setSelRTF(text.toUtf8());
}

} // namespace

void EditCommands::mnuEditUndo_Click()
{
    callFocused("undo()", Effect::Changes);
}

void EditCommands::mnuEditCut_Click()
{
    callFocused("cut()", Effect::Changes);
}

void EditCommands::mnuEditCopy_Click()
{
    callFocused("copy()", Effect::Reads);
}

void EditCommands::mnuEditPaste_Click()
{
    ignoreErrors([] { assignClipboard(); });
    callFocused("paste()", Effect::Changes);
}

void EditCommands::mnupasteimage_Click()
{
    callFocused("paste()", Effect::Changes);
}

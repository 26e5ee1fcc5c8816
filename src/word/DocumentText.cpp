#include "DocumentText.h"

#include "Forms.h"
#include "Globals.h"
#include "MainFrame.h"
#include "RichTextBox.h"

#include <algorithm>

namespace DocumentText {

RichTextBox &of(const Form &form)
{
    return form.member<RichTextBox>(QString::fromLatin1(name));
}

RichTextBox &ofActiveForm()
{
    const Form *active = mainFrame->ActiveForm();
    if (!active)
        throw RuntimeError(ErrorNumber::ObjectNotSet);
    return of(*active);
}

void requireUnlocked(const RichTextBox &text)
{
    if (text.Locked())
        throw RuntimeError(ErrorNumber::PermissionDenied);
}

int openDocuments()
{
    const QList<Form *> &forms = Forms::loaded();
    return int(std::count_if(forms.cbegin(), forms.cend(),
                             [](const Form *form) { return form->hasMember(QString::fromLatin1(name)); }));
}

} // namespace DocumentText

#include "DiallerDialogs.h"

#include "DialingRulesDialog.h"
#include "LineError.h"
#include "LinesDialog.h"
#include "RuntimeError.h"
#include "ShowDialog.h"
#include "TelephoneSettings.h"

namespace {

qint32 save(const TelephoneSettings &settings)
{
    try {
        settings.write();
        return LineError::None;
    } catch (const RuntimeError &) {
        return LineError::OperationFailed;
    }
}

} // namespace

qint32 DiallerDialogs::editLines(QWidget *owner, qsizetype line)
{
    TelephoneSettings settings = TelephoneSettings::read();
    LinesDialog dialog(settings.lines, line, owner);
    if (showDialog(dialog) != QDialog::Accepted)
        return LineError::None;
    settings.lines = dialog.lines();
    return save(settings);
}

qint32 DiallerDialogs::editDialingRules(QWidget *owner, const QString &number)
{
    TelephoneSettings settings = TelephoneSettings::read();
    DialingRulesDialog dialog(settings.outsidePrefix, number, owner);
    if (showDialog(dialog) != QDialog::Accepted)
        return LineError::None;
    settings.outsidePrefix = dialog.prefix();
    return save(settings);
}

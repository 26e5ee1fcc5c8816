#include "DiallerDialogs.h"

#include "Forms.h"
#include "LineError.h"
#include "RuntimeError.h"
#include "TelephoneSettings.h"
#include "frmDialingRules.h"
#include "frmLines.h"

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
    auto &window = Forms::refer<frmLines>();
    window.edit(settings.lines, line);
    window.showModal(owner);
    if (!window.isAccepted())
        return LineError::None;
    settings.lines = window.lines();
    return save(settings);
}

qint32 DiallerDialogs::editDialingRules(QWidget *owner, const QString &number)
{
    TelephoneSettings settings = TelephoneSettings::read();
    auto &window = Forms::refer<frmDialingRules>();
    window.edit(settings.outsidePrefix, number);
    window.showModal(owner);
    if (!window.isAccepted())
        return LineError::None;
    settings.outsidePrefix = window.prefix();
    return save(settings);
}

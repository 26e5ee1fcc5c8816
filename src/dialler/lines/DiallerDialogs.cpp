#include "DiallerDialogs.h"

#include "Ask.h"
#include "Forms.h"
#include "LineError.h"
#include "RuntimeError.h"
#include "ShownText.h"
#include "TelephoneSettings.h"
#include "frmDialingRules.h"
#include "frmLines.h"

namespace {

/// Tells why it cannot.
bool save(const TelephoneSettings &settings)
{
    try {
        settings.write();
        return true;
    } catch (const RuntimeError &error) {
        Ask(QStringLiteral("The telephone settings could not be saved: %1.").arg(error.description()) +
                (error.source().isEmpty() ? QString() : u'\n' + ShownText::line(error.source())),
            MsgBoxStyle::Exclamation, QStringLiteral("Telephone Lines"));
        return false;
    }
}

/// False where the user cancels; \a lines are as they were then.
bool letEdit(QList<LineSettings> &lines, qsizetype line, QWidget *owner)
{
    auto &window = Forms::refer<frmLines>();
    window.edit(lines, line);
    window.showModal(owner);
    if (window.isAccepted())
        lines = window.lines();
    return window.isAccepted();
}

bool letEdit(QString &prefix, const QString &number, QWidget *owner)
{
    auto &window = Forms::refer<frmDialingRules>();
    window.edit(prefix, number);
    window.showModal(owner);
    if (window.isAccepted())
        prefix = window.prefix();
    return window.isAccepted();
}

} // namespace

// What cannot be saved is shown again, so that nothing has to be typed twice.

qint32 DiallerDialogs::editLines(QWidget *owner, qsizetype line)
{
    TelephoneSettings settings = TelephoneSettings::read();
    while (letEdit(settings.lines, line, owner) && !save(settings)) {
    }
    return LineError::None;
}

qint32 DiallerDialogs::editDialingRules(QWidget *owner, const QString &number)
{
    TelephoneSettings settings = TelephoneSettings::read();
    while (letEdit(settings.outsidePrefix, number, owner) && !save(settings)) {
    }
    return LineError::None;
}

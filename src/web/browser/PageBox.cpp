#include "PageBox.h"

#include "Ask.h"
#include "InputBox.h"
#include "ShownText.h"
#include "WebBox.h"

#include <QStringList>

namespace {

constexpr int mostLines = 20;
constexpr int mostLetters = 1000;
constexpr int mostNameLetters = 100; // fits into the 255 bytes of a name in any script

QString shown(const QString &text)
{
    const QStringList lines = ShownText::lines(text.left(mostLetters)).split(u'\n');
    return lines.mid(0, mostLines).join(u'\n');
}

QString titleOf(const WebBox &box)
{
    const QString from = box.host.isEmpty() ? QStringLiteral("this file") : box.host;
    return QStringLiteral("The page of %1 says:").arg(ShownText::line(from.left(mostNameLetters)));
}

void prompt(WebBox &box)
{
    box.value = InputBox(shown(box.text), titleOf(box), ShownText::line(box.value.left(mostLetters)));
    box.isAccepted = !box.value.isEmpty();
}

} // namespace

void PageBox::show(WebBox &box)
{
    switch (box.kind) {
    case WebBox::Kind::Alert:
        Ask(shown(box.text), MsgBoxStyle::Plain, titleOf(box));
        box.isAccepted = true;
        break;
    case WebBox::Kind::Confirm:
        box.isAccepted = Ask(shown(box.text), MsgBoxStyle::OkCancel, titleOf(box)) == MsgBoxReply::Ok;
        break;
    case WebBox::Kind::Prompt:
        prompt(box);
        break;
    }
}

QString PageBox::suggestedName(const QString &name)
{
    QString safe = ShownText::line(name.section(u'/', -1));
    while (safe.startsWith(u'.'))
        safe.remove(0, 1); // hidden, or a folder's
    if (safe.isEmpty())
        return QStringLiteral("download");
    return safe.size() <= mostNameLetters ? safe : safe.right(mostNameLetters); // the end says what it is
}

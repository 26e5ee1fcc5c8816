#include "RecoveryText.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QString captionKey = QStringLiteral("caption");
const QString lineEndKey = QStringLiteral("lineEnd");

} // namespace

QByteArray RecoveryText::toBytes() const
{
    const QJsonObject head{{captionKey, caption}, {lineEndKey, int(lineEnd)}};
    return QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n' + rtf;
}

std::optional<RecoveryText> RecoveryText::fromBytes(const QByteArray &bytes)
{
    const qsizetype headEnd = bytes.indexOf('\n');
    if (headEnd < 0)
        return std::nullopt;
    const QJsonObject head = QJsonDocument::fromJson(bytes.left(headEnd)).object();
    const QJsonValue caption = head.value(captionKey);
    const int lineEnd = head.value(lineEndKey).toInt(-1);
    if (!caption.isString() || lineEnd < int(PlainText::LineEnd::Lf) || lineEnd > int(PlainText::LineEnd::Cr))
        return std::nullopt;
    return RecoveryText{caption.toString(), PlainText::LineEnd(lineEnd), bytes.mid(headEnd + 1)};
}

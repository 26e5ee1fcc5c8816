#include "WordEncoding.h"

#include <unicode/ucnv.h>

namespace {

UConverter *open(QByteArray name)
{
    name.replace("microsoft-cp", "windows-");
    UErrorCode error = U_ZERO_ERROR;
    UConverter *converter = ucnv_open(name.constData(), &error);
    if (U_FAILURE(error))
        return nullptr;
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    return converter;
}

} // namespace

WordEncoding::WordEncoding(const char *name)
    : m_converter(open(name))
{}

WordEncoding::~WordEncoding()
{
    if (m_converter)
        ucnv_close(m_converter);
}

QByteArray WordEncoding::encoded(const QString &word) const
{
    if (!m_converter)
        return {};
    UErrorCode error = U_ZERO_ERROR;
    QByteArray bytes(UCNV_GET_MAX_BYTES_FOR_STRING(word.size(), ucnv_getMaxCharSize(m_converter)), '\0');
    const int length =
        ucnv_fromUChars(m_converter, bytes.data(), int(bytes.size()),
                        reinterpret_cast<const char16_t *>(word.utf16()), int(word.size()), &error);
    return U_SUCCESS(error) ? bytes.first(length) : QByteArray();
}

QString WordEncoding::decoded(const QByteArray &word) const
{
    if (!m_converter)
        return {};
    UErrorCode error = U_ZERO_ERROR;
    QString text(2 * word.size(), Qt::Uninitialized);
    const int length = ucnv_toUChars(m_converter, reinterpret_cast<char16_t *>(text.data()), int(text.size()),
                                     word.constData(), int(word.size()), &error);
    return U_SUCCESS(error) ? text.first(length) : QString();
}

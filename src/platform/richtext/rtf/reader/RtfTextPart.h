#pragma once

#include "RtfPart.h"

#include <QString>

class RtfCodePage;

/// A group whose text is wanted as it is, such as a field's instruction.
class RtfTextPart : public RtfPart
{
public:
    void begin(const RtfCodePage &page);
    QString end();

    void bytes(QByteArrayView bytes) override;
    void character(char16_t c) override;

private:
    void flush();

    const RtfCodePage *m_page = nullptr;
    QByteArray m_bytes;
    QString m_text;
};

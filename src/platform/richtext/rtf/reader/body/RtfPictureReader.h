#pragma once

#include "RtfPart.h"

#include <QByteArray>
#include <QTextImageFormat>

class QTextDocument;

/// One picture of the file, kept as it came. What Qt cannot show becomes a grey frame of the picture's size.
class RtfPictureReader : public RtfPart
{
public:
    explicit RtfPictureReader(QTextDocument &document);

    void begin();
    /// The picture that was read, known to the document by its name. Without a picture the name is empty.
    QTextImageFormat end();

    void open() override { ++m_depth; }
    void close() override { --m_depth; }
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;
    void binary(QByteArrayView bytes) override;

private:
    void setKind(const char *word, const RtfToken &token);
    QSizeF shownSize() const;
    QString addResource(const QSizeF &size);
    QByteArray asFile() const;

    QTextDocument &m_document;

    // The picture that is being read
    int m_depth = 0;
    QByteArray m_bytes;
    int m_halfByte = -1;
    QByteArray m_kind;
    int m_width = 0;
    int m_height = 0;
    int m_goalWidth = 0;
    int m_goalHeight = 0;
    int m_scaleX = 0;
    int m_scaleY = 0;
};

#include "Pictures.h"

#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <QUuid>

namespace {

QString freshName()
{
    return QStringLiteral("picture:") + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QVariant resource(const QTextDocument &document, const QString &name)
{
    return document.resource(QTextDocument::ImageResource, QUrl(name));
}

void rename(QTextDocument &document, const QTextFragment &run, const QString &name)
{
    QTextImageFormat format = run.charFormat().toImageFormat();
    format.setName(name);
    QTextCursor picture(&document);
    picture.setPosition(run.position());
    picture.setPosition(run.position() + run.length(), QTextCursor::KeepAnchor);
    picture.setCharFormat(format);
}

QList<QTextFragment> pictureRuns(const QTextDocument &document)
{
    QList<QTextFragment> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isImageFormat())
                runs.append(it.fragment());
        }
    }
    return runs;
}

} // namespace

void Pictures::insert(QTextCursor &cursor, const QImage &image)
{
    const QString name = freshName();
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl(name), image);
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(image.width() / image.devicePixelRatio());
    format.setHeight(image.height() / image.devicePixelRatio());
    cursor.insertImage(format);
}

void Pictures::move(QTextDocument &from, QTextDocument &to)
{
    for (const QTextFragment &run : pictureRuns(from)) {
        const QVariant picture = resource(from, run.charFormat().toImageFormat().name());
        if (!picture.isValid())
            continue;
        const QString name = freshName();
        to.addResource(QTextDocument::ImageResource, QUrl(name), picture);
        rename(from, run, name);
    }
}

QImage Pictures::selected(const QTextCursor &cursor)
{
    if (cursor.selectionEnd() - cursor.selectionStart() != 1)
        return {};
    QTextCursor behind = cursor;
    behind.setPosition(cursor.selectionEnd()); // a position's format is that of the character before it
    const QTextCharFormat format = behind.charFormat();
    if (!format.isImageFormat())
        return {};
    const QVariant picture = resource(*cursor.document(), format.toImageFormat().name());
    return picture.typeId() == QMetaType::QByteArray ? QImage::fromData(picture.toByteArray())
                                                     : picture.value<QImage>();
}

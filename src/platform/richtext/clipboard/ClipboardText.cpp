#include "ClipboardText.h"

#include "EventGate.h"
#include "FileDrop.h"
#include "Pictures.h"
#include "RichTextFile.h"
#include "RtfReader.h"
#include "RtfWriter.h"

#include <QImage>
#include <QImageReader>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

namespace {

const QStringList &richTextTypes()
{
    static const QStringList types = {QStringLiteral("text/rtf"), QStringLiteral("application/rtf"),
                                      QStringLiteral("text/richtext")};
    return types;
}

/// HTML is made when somebody asks for it: of a large text it takes long, and hardly anybody does.
class SelectionData : public QMimeData
{
public:
    explicit SelectionData(const QTextCursor &selection)
        : m_html(QStringLiteral("text/html"))
    {
        setText(RichTextFile::text(selection));
        setData(richTextTypes().first(), RtfWriter::writeSelection(selection));
        const QImage picture = Pictures::selected(selection);
        if (!picture.isNull())
            setImageData(picture);
    }

    QStringList formats() const override { return QMimeData::formats() << m_html; }
    bool hasFormat(const QString &type) const override
    {
        return type == m_html || QMimeData::hasFormat(type);
    }

protected:
    QVariant retrieveData(const QString &type, QMetaType wanted) const override
    {
        if (type != m_html)
            return QMimeData::retrieveData(type, wanted);
        QString html;
        run([&] {
            QTextDocument document;
            RtfReader::read(data(richTextTypes().first()), document);
            Pictures::nameByBytes(document); // the names of our own mean nothing elsewhere
            html = document.toHtml();
        });
        return html;
    }

private:
    QString m_html;
};

} // namespace

std::unique_ptr<QMimeData> ClipboardText::of(const QTextCursor &selection)
{
    return std::make_unique<SelectionData>(selection);
}

bool ClipboardText::isRichText(const QMimeData &data)
{
    return !richText(data).isEmpty();
}

QByteArray ClipboardText::richText(const QMimeData &data)
{
    for (const QString &type : richTextTypes()) {
        const QByteArray bytes = data.data(type);
        if (RtfReader::recognises(bytes))
            return bytes;
    }
    return {};
}

bool ClipboardText::isPicture(const QMimeData &data)
{
    if (!data.hasImage())
        return false;
    const QString text = QTextDocumentFragment::fromHtml(data.html()).toPlainText();
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c.isSpace() || c == QChar::ObjectReplacementCharacter; });
}

QStringList ClipboardText::pictureFiles(const QMimeData &data)
{
    const QStringList files = FileDrop::filesIn(data);
    const bool arePictures = std::ranges::none_of(
        files, [](const QString &path) { return QImageReader::imageFormat(path).isEmpty(); });
    return arePictures && files.size() == data.urls().size() ? files : QStringList();
}

bool ClipboardText::namesDocuments(const QMimeData &data)
{
    const QStringList files = FileDrop::filesIn(data);
    return std::ranges::any_of(files, &RichTextFile::isDocumentName);
}

#pragma once

#include <QByteArrayView>
#include <memory>
#include <optional>

class QTextDocument;
class QTextFrameFormat;

/// The headers and footers of a document, each a small document of its own. They are kept in the format of
/// its root frame, shared by clones, and never change.
namespace PageTexts {

enum Kind {
    Header, ///< of all pages that have no other one
    HeaderLeft,
    HeaderRight,
    HeaderFirst,
    Footer,
    FooterLeft,
    FooterRight,
    FooterFirst,
    KindCount
};

/// The control word, without its backslash.
const char *word(Kind kind);
std::optional<Kind> find(QByteArrayView word);

void keep(QTextFrameFormat &format, Kind kind, std::shared_ptr<const QTextDocument> text);

/// Null where \a format has none of this kind.
std::shared_ptr<const QTextDocument> text(const QTextFrameFormat &format, Kind kind);

/// Those of the first section of \a document that has any.
std::shared_ptr<const QTextDocument> text(const QTextDocument &document, Kind kind);

} // namespace PageTexts

#include "MisspellingFinder.h"

#include "LinkFinder.h"
#include "ProofingLanguage.h"
#include "RichTextProperties.h"
#include "Speller.h"
#include "Spellers.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <algorithm>

namespace {

using MisspellingFinder::Misspelling;

constexpr int longestParagraph = 20000; // characters
constexpr qsizetype longestWord = 100;  // characters; what is longer is no word of a language

bool canBeMisspelt(QStringView word)
{
    const auto isLetter = [](QChar c) { return c.isLetter() || c.isSurrogate(); };
    const auto isForeign = [](QChar c) { return c.isDigit() || c == QChar::ObjectReplacementCharacter; };
    return word.size() > 1 && word.size() <= longestWord && std::ranges::any_of(word, isLetter) &&
           std::ranges::none_of(word, isForeign);
}

QString languageOf(const QTextCharFormat &format)
{
    return format.hasProperty(RichTextProperty::Language)
               ? ProofingLanguage::name(format.intProperty(RichTextProperty::Language))
               : ProofingLanguage::ofDesktop();
}

/// The languages of a paragraph, asked for from its beginning to its end.
class Languages
{
public:
    explicit Languages(const QTextBlock &block)
        : m_run(block.begin())
    {}
    const QString &at(int position)
    {
        while (!m_run.atEnd() && (m_end <= position)) {
            m_end = m_run.fragment().position() + m_run.fragment().length();
            m_language = languageOf(m_run.fragment().charFormat());
            ++m_run;
        }
        return m_language;
    }

private:
    QTextBlock::iterator m_run;
    QString m_language;
    int m_end = 0; ///< of the text in this language
};

bool isInLink(const QList<LinkFinder::Link> &links, int position)
{
    return std::ranges::any_of(
        links, [&](const LinkFinder::Link &link) { return link.first <= position && position < link.end; });
}

void appendFrom(QList<Misspelling> &found, const QTextBlock &block)
{
    const QString text = block.text();
    const int start = block.position();
    const QList<LinkFinder::Link> links =
        LinkFinder::between(*block.document(), start, start + int(text.size()));
    Languages languages(block);
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, text);
    while (words.position() >= 0 && words.position() < text.size()) {
        const bool isWord = words.boundaryReasons() & QTextBoundaryFinder::StartOfItem;
        const qsizetype first = words.position();
        const qsizetype end = words.toNextBoundary();
        const QStringView word = end < 0 ? QStringView() : QStringView(text).sliced(first, end - first);
        if (!isWord || !canBeMisspelt(word) || isInLink(links, start + int(first)))
            continue;
        const QString &language = languages.at(start + int(first));
        Speller *speller = Spellers::shared().of(language);
        if (speller && !speller->knows(word.toString()))
            found.append({start + int(first), start + int(end), word.toString(), language});
    }
}

} // namespace

QList<Misspelling> MisspellingFinder::between(const QTextDocument &document, int first, int end)
{
    QList<Misspelling> found;
    for (QTextBlock block = document.findBlock(first); block.isValid() && block.position() <= end;
         block = block.next()) {
        if (block.length() <= longestParagraph)
            appendFrom(found, block);
    }
    return found;
}

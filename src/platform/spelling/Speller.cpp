#include "Speller.h"

#include "FileNames.h"

#include <hunspell/hunspell.hxx>

namespace {

constexpr int mostAnswers = 100000; // some megabytes

/// Dictionaries write the apostrophe as a typewriter does, and no marks of where a word may be broken or
/// joined.
QString asInDictionaries(QString word)
{
    word.removeIf([](QChar c) {
        constexpr char16_t softHyphen = 0x00AD;
        constexpr char16_t wordJoiner = 0x2060;
        return c == softHyphen || c == wordJoiner || (c >= QChar(0x200B) && c <= QChar(0x200D));
    });
    return word.replace(u'\u2019', u'\'');
}

std::unique_ptr<Hunspell> read(const QByteArray &path)
{
    return std::make_unique<Hunspell>((path + ".aff").constData(), (path + ".dic").constData());
}

} // namespace

Speller::Speller(const QString &path)
    : m_hunspell(read(FileNames::toBytes(path)))
    , m_encoding(m_hunspell->get_dict_encoding().c_str())
{}

Speller::~Speller() = default;

bool Speller::knows(const QString &word)
{
    if (const auto answer = m_answers.constFind(word); answer != m_answers.cend())
        return *answer;
    const std::unique_lock lock(m_mutex, std::try_to_lock);
    if (!lock)
        return true;
    if (m_answers.size() >= mostAnswers)
        m_answers.clear();
    const QByteArray bytes = m_encoding.encoded(asInDictionaries(word));
    const bool isKnown =
        !m_encoding.isKnown() || (!bytes.isEmpty() && m_hunspell->spell(bytes.toStdString()));
    m_answers.insert(word, isKnown);
    return isKnown;
}

QStringList Speller::suggestions(const QString &word, int most)
{
    const std::lock_guard lock(m_mutex);
    QStringList words;
    const QByteArray bytes = m_encoding.encoded(asInDictionaries(word));
    if (bytes.isEmpty())
        return words;
    for (const std::string &found : m_hunspell->suggest(bytes.toStdString())) {
        if (words.size() == most)
            break;
        words.append(m_encoding.decoded(QByteArray::fromStdString(found)));
    }
    return words;
}

#include "Spellers.h"

#include "BackgroundTask.h"
#include "EventGate.h"
#include "Speller.h"

#include <QDir>
#include <QPointer>
#include <QStandardPaths>

namespace {

/// Without their endings.
QStringList dictionaries(const QString &pattern)
{
    QStringList paths;
    for (const QString &folder :
         QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("hunspell"),
                                   QStandardPaths::LocateDirectory)) {
        for (const QString &file :
             QDir(folder).entryList({pattern + QStringLiteral(".dic")}, QDir::Files, QDir::Name)) {
            const QString path = folder + u'/' + file.chopped(4);
            if (QFile::exists(path + QStringLiteral(".aff")))
                paths.append(path);
        }
    }
    return paths;
}

QString pathOf(const QString &language)
{
    const QString word = language.section(u'_', 0, 0);
    for (const QString &pattern : {language, word, word + QStringLiteral("_*")}) {
        if (const QStringList paths = dictionaries(pattern); !paths.isEmpty())
            return paths.first();
    }
    return {};
}

} // namespace

Spellers &Spellers::shared()
{
    static Spellers spellers;
    return spellers;
}

Spellers::Spellers() = default;
Spellers::~Spellers() = default;

Speller *Spellers::of(const QString &language)
{
    if (language.isEmpty())
        return nullptr;
    auto path = m_paths.constFind(language);
    if (path == m_paths.cend())
        path = m_paths.insert(language, pathOf(language));
    if (!path->isEmpty() && !m_spellers.contains(*path))
        load(*path);
    return m_spellers.value(*path).get();
}

void Spellers::load(const QString &path)
{
    m_spellers.insert(path, nullptr);
    const auto read = std::make_shared<std::shared_ptr<Speller>>();
    auto *task = new BackgroundTask(this);
    on(task, &BackgroundTask::finished, this, [this, task, path, read] {
        task->deleteLater();
        m_spellers.insert(path, *read);
        Q_EMIT changed();
    });
    task->start([read, path] {
        *read = std::make_shared<Speller>(path);
        return 0;
    });
}

void Spellers::suggest(Speller &speller, const QString &word, int most, const QObject &asker,
                       const std::function<void(const QStringList &)> &take)
{
    const auto words = std::make_shared<QStringList>();
    auto *task = new BackgroundTask(this);
    on(task, &BackgroundTask::finished, this, [this, task, words, take, asker = QPointer(&asker)] {
        task->deleteLater();
        if (asker)
            take(*words);
        Q_EMIT changed();
    });
    task->start([words, word, most, speller = speller.shared_from_this()] {
        *words = speller->suggestions(word, most);
        return 0;
    });
}

#pragma once

#include <QHash>
#include <QObject>
#include <functional>
#include <memory>

class Speller;

/// The dictionaries that the desktop has, one for each language. Each is read when it is first asked for, by
/// a thread of its own.
class Spellers : public QObject
{
    Q_OBJECT

public:
    /// Those that all windows share.
    static Spellers &shared();

    Spellers();
    ~Spellers() override;

    /// The dictionary of \a language ("en_GB"; that of another country where there is none for this one).
    /// Null where there is none, and until it has been read.
    Speller *of(const QString &language);

    /// Has \a speller look for suggestions (see Speller) by a thread of its own. \a take gets them, unless
    /// \a asker is gone then.
    void suggest(Speller &speller, const QString &word, int most, const QObject &asker,
                 const std::function<void(const QStringList &)> &take);

Q_SIGNALS:
    /// A dictionary has been read, or is free again: it may answer otherwise than before.
    void changed();

private:
    void load(const QString &path);

    QHash<QString, QString> m_paths;                     ///< by language; empty where there is none
    QHash<QString, std::shared_ptr<Speller>> m_spellers; ///< by path; null while they are read
};

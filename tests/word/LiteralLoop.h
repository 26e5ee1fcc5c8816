#pragma once

#include <QString>

/// Find and replace on a plain text by its definition, step by step and character by character: slow, and
/// easy to be sure of. What the suite does quickly is measured against it.
class LiteralLoop
{
public:
    struct Found
    {
        bool found = false;
        int position = 0; ///< from 1; 0 for a refused hit
        int end = 0;
    };

    QString text;
    int selStart = 0;
    int selEnd = 0;

    Found search(const QString &wanted, int flags) const;

    /// Replaces the selection and searches until nothing is found or nothing is selected. Returns false when
    /// that has not come to an end after \a most steps.
    bool replaceAll(const QString &wanted, const QString &replacement, int flags, int most);

    /// The calm run: no hit may hold a character that the run put in.
    void replaceOriginals(const QString &wanted, const QString &replacement, int flags);

private:
    bool matches(int position, const QString &wanted, bool matchCase) const;
    int firstFrom(int position, const QString &wanted, bool matchCase) const;
    int lastUpTo(int end, const QString &wanted, bool matchCase) const;
    bool isSeparator(int position) const;
    void replaceSelection(const QString &replacement);
    bool take(int position, const QString &wanted, const QString &replacement, int flags);
};

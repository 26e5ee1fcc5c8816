#pragma once

#include "HelpSource.h"

/// Reads a help source line by line.
class HelpSourceReader
{
public:
    /// Throws HelpError for what is no help source.
    HelpSource read(const QString &text);

private:
    void readLine(const QString &line);
    bool readTitle(const QString &line);
    bool readWindows(const QString &line);
    bool readHeading(const QString &line);
    bool readPicture(const QString &line);
    bool readStep(const QString &line);
    bool readBullet(const QString &line);
    void readText(const QString &line);

    HelpBlock &begin(HelpBlock::Kind kind, const QString &text);
    void end();
    bool isAfter(HelpBlock::Kind kind) const;

    HelpSource m_source;
    QString m_text;        ///< of the latest block, whose lines are joined
    bool m_isOpen = false; ///< whether a line of text goes on with it
    int m_line = 0;
    int m_step = 0; ///< number of the latest step
};

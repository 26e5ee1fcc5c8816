#pragma once

#include "HelpBlock.h"

#include <QStringList>

/// A topic of the help as it is written, in a small part of Markdown: a title, headings, paragraphs, numbered
/// steps, bullets and pictures.
struct HelpSource
{
    QStringList windows; ///< names of those whose captions the text may name
    QList<HelpBlock> blocks;

    /// Reads the content of a source. Throws HelpError for anything else.
    static HelpSource read(const QString &text);
};

#pragma once

#include "HelpSpan.h"

#include <QList>

/// A paragraph, or a picture, of a help source.
struct HelpBlock
{
    enum class Kind { Title, Heading, Paragraph, Step, Bullet, Picture };

    Kind kind = Kind::Paragraph;
    int line = 0; ///< where it begins, from 1
    QList<HelpSpan> spans = {};
    bool startsList = false;  ///< of a step or bullet; else it goes on with the list before
    QString picture = {};     ///< path from the help's folder
    QString description = {}; ///< of the picture
};

#pragma once

#include <QTextListFormat>
#include <optional>

class QTextDocument;

/// How the pages of a document are set up. Lengths in twips, none where the document does not say.
struct PageSetup
{
    static constexpr int usualDistance = 720;

    std::optional<int> width;
    std::optional<int> height;
    std::optional<int> left; ///< with the gutter
    std::optional<int> right;
    std::optional<int> top;
    std::optional<int> bottom;
    int headerDistance = usualDistance; ///< of headers from the upper edge of the paper
    int footerDistance = usualDistance; ///< of footers from the lower one
    bool isLandscape = false;
    bool isMirrored = false;   ///< left and right margins change sides on pages with even numbers
    bool hasTitlePage = false; ///< the first page has headers and footers of its own, or none
    bool hasFacingPages = false;
    int firstNumber = 1;
    QTextListFormat::Style numbers = QTextListFormat::ListDecimal;

    static PageSetup of(const QTextDocument &document);
};

#pragma once

class QTextDocument;

/// Small capitals for devices of other dots than the screen's, where Qt draws them in a wrong size.
namespace SmallCapitals {

/// Makes them large capitals of a smaller font, as they look on the screen.
void spellOut(QTextDocument &document);

} // namespace SmallCapitals

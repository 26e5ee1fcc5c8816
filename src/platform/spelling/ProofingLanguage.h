#pragma once

#include <QString>

/// The languages of texts, by the numbers that rich text has for them.
namespace ProofingLanguage {

/// The language and country of \a number, as "en_GB", or the language alone; empty for a number that stands
/// for none, and for 1024, text that is not to be proofed.
QString name(int number);

/// The language of the desktop.
QString ofDesktop();

} // namespace ProofingLanguage

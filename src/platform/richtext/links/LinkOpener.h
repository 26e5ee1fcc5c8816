#pragma once

class QString;

/// Opens what a link in a document points to.
namespace LinkOpener {

/// Hands \a target (an address with or without its scheme, or a mail address) to the desktop's default
/// handler. Nothing happens when there is none.
void open(const QString &target);

} // namespace LinkOpener

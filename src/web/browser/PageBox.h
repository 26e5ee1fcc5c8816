#pragma once

struct WebBox;
class QString;

/// What pages ask of the user, shown as the suite's own dialogs. Nothing that a page says can look like more
/// than text.
namespace PageBox {

/// Shows \a box and puts the answer into it. An empty answer to a prompt counts as Cancel.
void show(WebBox &box);

/// A page's name for a file as a name to suggest: without folders and what is not seen, and not too long.
QString suggestedName(const QString &name);

} // namespace PageBox

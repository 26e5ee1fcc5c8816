#pragma once

class QString;
class RegistryStore;

/// Makes the desktop open files by the registry's classes of their extensions.
namespace FileAssociations {

/// Registers the class \a className of \a store with the desktop: a kind of file for its extensions,
/// and its program as the one that opens them, with the other commands as further actions. Waits until the
/// desktop's own tools have taken it over. Does nothing for a class without extension or open command.
/// A missing tool, or a folder that cannot be written, is passed over: the keys are what counts.
void materialise(const RegistryStore &store, const QString &className);

} // namespace FileAssociations

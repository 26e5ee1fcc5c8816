#pragma once

class FileDescriptor;

/// The owner, group, permissions, access lists and other attributes of a file that another one replaces.
namespace KeptAttributes {

/// Gives them to \a to. Where the system does not let the user give owner or group away, nobody may do more
/// with the new file than with the old one: permissions of somebody else now, access lists and set-id bits
/// are left out. Throws FileFailure.
void copy(const FileDescriptor &from, const FileDescriptor &to);

} // namespace KeptAttributes

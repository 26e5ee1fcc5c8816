#pragma once

/// The library's answer codes for the question about a file that exists.
namespace OverwriteReply {

/// The OverwriteAnswer for \a response, a MsgBoxReply. Whatever is neither Yes nor No refuses all files.
int of(int response, bool applyToAll);

} // namespace OverwriteReply

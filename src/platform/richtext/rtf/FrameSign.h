#pragma once

/// What the text of a document has where a frame or the cell of a table begins, and where it ends.
namespace FrameSign {

inline constexpr char16_t begin = 0xFDD0;
inline constexpr char16_t end = 0xFDD1;

} // namespace FrameSign

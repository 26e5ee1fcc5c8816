#pragma once

namespace RtfGenerator {

/// What our files say wrote them.
inline constexpr const char *name = "Quill-Office Tools";

} // namespace RtfGenerator

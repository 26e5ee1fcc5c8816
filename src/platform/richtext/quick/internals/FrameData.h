#pragma once

class QTextFrame;

/// What Qt's layout has noted about a table or another frame: its place, its size, the heights of its rows.
namespace FrameData {

/// Moves \a frame, which stands in the flow of the page, with all within. \a distance is in pixels. False,
/// and nothing moved, when Qt does not keep the place where it is known to.
bool moveBy(QTextFrame &frame, double distance);

/// Gives each of two frames what was noted about the other. Neither may hold frames.
void exchange(QTextFrame &one, QTextFrame &other);

} // namespace FrameData

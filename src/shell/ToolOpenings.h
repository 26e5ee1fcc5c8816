#pragma once

#include <QString>
#include <span>

class frmMain;

/// Which command opens which tool window, and how.
namespace ToolOpenings {

enum class How {
    Show,    ///< modeless; a single instance that is open already comes to the front
    Modal,   ///< owned by the frame
    Dialler, ///< any open one is unloaded first, since its menu differs by the mode in `argument`
    Browser, ///< a new instance each time, at the publisher's page `argument`
};

struct Row
{
    const char *command;
    const char *window;
    How how = How::Show;
    const char *argument = nullptr;
};

std::span<const Row> rows();

/// Opens the window that \a row names. What the window's load throws reaches the caller.
void open(const Row &row, frmMain &frame);

} // namespace ToolOpenings

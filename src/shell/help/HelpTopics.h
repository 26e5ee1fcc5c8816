#pragma once

#include <span>

/// The topics of the help, in the order of the tabs on screen.
namespace HelpTopics {

struct Topic
{
    const char *tab; ///< caption; the topics of a tab follow each other
    int index;
    const char *caption;
    const char *file; ///< in the help folder
};

/// The document that is shown while no topic is chosen.
inline constexpr auto menuFile = "quillofficehelpmenu.rtf";

std::span<const Topic> all();

/// nullptr for an index that no topic has.
const Topic *withIndex(int index);

} // namespace HelpTopics

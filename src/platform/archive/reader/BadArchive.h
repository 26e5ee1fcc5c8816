#pragma once

/// Data that is no archive, or an entry that is not as its archive says.
struct BadArchive
{
    enum Kind {
        Damaged,
        Cut,         ///< what is missing would be behind the end of the file
        Overlapping, ///< some data belongs to two entries
        Unsupported, ///< intact, but of a kind that is not read here
    };

    const char *reason; ///< for the job's messages
    Kind kind = Damaged;
};

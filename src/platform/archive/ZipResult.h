#pragma once

/// What a job of the zip library returns. After any failure but CannotOpen the archive is as it was.
namespace ZipResult {

inline constexpr int Success = 0;
inline constexpr int NoArchive = 3; ///< the file that is to be updated is none, or is damaged
inline constexpr int OutOfMemory = 4;
inline constexpr int Internal = 5; ///< also: another job runs
inline constexpr int Cancelled = 9;
inline constexpr int ReadFailed = 11;
inline constexpr int NothingToDo = 12;
inline constexpr int MissingArchive = 13; ///< to delete from
inline constexpr int WriteFailed = 14;    ///< also: the disk is full
inline constexpr int CannotCreate = 15;
inline constexpr int BadParameters = 16; ///< two files of one name, two passwords that differ
inline constexpr int CannotOpen = 18;    ///< a file could not be read; the others are in the archive

} // namespace ZipResult

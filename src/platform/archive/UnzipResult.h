#pragma once

/// What a job of the unzip library returns. An entry that fails does not keep the others from being
/// extracted; the job returns the largest number that it met.
namespace UnzipResult {

inline constexpr int Success = 0;
inline constexpr int Warning = 1;      ///< some entry could not be written
inline constexpr int DamagedEntry = 2; ///< or one whose name is not allowed
inline constexpr int NoArchive = 3;    ///< the file is none, or its directory is damaged
inline constexpr int OutOfMemory = 4;
inline constexpr int CannotOpen = 9;     ///< the archive is missing, or may not be read
inline constexpr int BadParameters = 10; ///< no target folder, or another job runs
inline constexpr int NothingFound = 11;  ///< no entry has one of the names
inline constexpr int Overlap = 12;       ///< entries share bytes
inline constexpr int DiskFull = 50;      ///< the job has ended there
inline constexpr int Cut = 51;           ///< the archive ends too early
inline constexpr int Cancelled = 80;     ///< the job has ended there
inline constexpr int Unsupported = 81;   ///< a compression or encryption that is not known
inline constexpr int NoPassword = 82;    ///< none, or a wrong one

} // namespace UnzipResult

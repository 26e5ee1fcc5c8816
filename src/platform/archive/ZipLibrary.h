#pragma once

#include "NameList.h"
#include "ZIPUSERFUNCTIONS.h"
#include "ZPOPT.h"
#include "ZipResult.h"

// The zip library: makes and updates archives. One job at a time, on the caller's thread; two more threads
// compress.
//
// Whatever happens (a full disk, a failure, a cancelled job, a killed process), the archive is afterwards
// either as it was or as it should be. An updated one keeps its owner, permissions and place behind a link;
// entries that do not change are copied as they are.
//
// A job can also be cancelled while a file keeps it waiting, as one on a server that does not answer does.
// The thread that waits is left alone then, and changes nothing any more. Only the archive's own folder is
// waited for.

/// The functions that following jobs call.
void ZpInit(const ZIPUSERFUNCTIONS &functions);

/// The options of the next job.
void ZpSetOptions(const ZPOPT &options);

/// Runs a job on \a archive, a native path. \a names are files and folders, or patterns with "*", "?" and
/// "[...]"; relative ones are below the current folder. Returns a ZipResult.
int ZpArchive(const QByteArray &archive, const NameList &names);

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

/// The functions that following jobs call.
void ZpInit(const ZIPUSERFUNCTIONS &functions);

/// The options of the next job.
void ZpSetOptions(const ZPOPT &options);

/// Runs a job on \a archive, a native path. \a names are files and folders, or patterns with "*", "?" and
/// "[...]"; relative ones are below the current folder. Returns a ZipResult.
int ZpArchive(const QByteArray &archive, const NameList &names);

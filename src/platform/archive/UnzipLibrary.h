#pragma once

#include "DCLIST.h"
#include "NameList.h"
#include "USERFUNCTION.h"
#include "UZPVER.h"
#include "UnzipResult.h"

// The unzip library: lists, tests and extracts archives. One job at a time, on the caller's thread; two more
// threads unpack.
//
// Nothing is written outside of the target folder or through a link, whatever an archive says. A file appears
// only when it is whole and its checksum right; what a killed job has left is removed by the next one that
// uses the folder. Entries that share bytes, that have ".." in their names or that become larger than they
// say are refused.
//
// A job that is cancelled waits for the calls that read the archive and write files, so that nothing appears
// after it, and gives the folders that it has made their permissions.

/// Runs a job. \a included are the names of the entries that it is about, all of them where the list is
/// empty; \a excluded those that it is not about. Returns a UnzipResult.
int Wiz_SingleEntryUnzip(const NameList &included, const NameList &excluded, const DCLIST &options,
                         const USERFUNCTION &functions);

void UzpVersion2(UZPVER &version);

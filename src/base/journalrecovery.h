#pragma once

#include "base/fileattributes.h"

/// Goes through the journals of earlier runs: a song that was left half written gets its old
/// bytes back, a journal that is of no more use is removed, and each is logged. A song that
/// someone else wrote in the meantime is left as it is, and its old bytes are put aside.
void recoverJournals();

/// The same for the journals of this song alone: a process that wrote it may have died while this
/// one was already running.
void recoverJournalsOf(const FileAttributes &song);

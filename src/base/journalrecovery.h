#pragma once

#include <QString>

/// Goes through the journals of earlier runs: a song that was left half written gets its old
/// bytes back, a journal that is of no more use is removed, and each is logged. A song that
/// someone else wrote in the meantime is left as it is, and its old bytes are put aside.
void recoverJournals();

/// The same for the open and locked song alone: a process that wrote it may have died while this
/// one was already running. Returns why the song is still not whole, empty when it is.
QString recoverJournalsOf(int song);

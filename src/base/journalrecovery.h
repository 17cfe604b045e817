#pragma once

/// Goes through the journals of earlier runs: a song that was left half written gets its old
/// bytes back, a journal that is of no more use is removed, and each is logged. A song that
/// someone else wrote in the meantime is left as it is, and its old bytes are put aside.
void recoverJournals();

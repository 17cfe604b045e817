#pragma once

#include "tags/audioinfotag.h"

#include <QVariantMap>

#include <memory>

/// A lazy tag filled from one track of the library file of iTunes: no song is read. Null when
/// the track is of a kind that has no tag of ours.
std::unique_ptr<AudioInfoTag> tagWithiTunesTrackInfo(const QVariantMap &track);

#pragma once

#include "cli/jsonwriter.h"
#include "tags/audioinfotag.h"

#include <QString>

/// Whether every frame is listed too.
enum class ListFrames { No, Yes };

/// A song's tag as JSON, with the keys that `show --json` promises.
void writeTag(JsonWriter &json, const QString &path, const AudioInfoTag &tag, ListFrames frames,
              const ID3Dialect &dialect);

/// The same keys for a file that gets no tag.
void writeNoTag(JsonWriter &json, const QString &path, const QString &error);

/// A song's tag laid out for reading.
QString tagAsText(const QString &path, const AudioInfoTag &tag, ListFrames frames,
                  const ID3Dialect &dialect);

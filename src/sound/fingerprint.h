#pragma once

#include <QByteArray>

/// What the first two minutes of a song sound like, as services that know songs by their sound are
/// asked: compressed, in the letters of URL-safe base64. Throws MalformedData when there is no
/// sound or too little of it.
[[nodiscard]] QByteArray fingerprintOfSong(const QByteArray &path);

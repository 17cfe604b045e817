#pragma once

#include <QDir>
#include <QTemporaryDir>

/// Writes a file of exactly these bytes, replacing what is there. A failure ends the test.
void writeFile(const QString &path, const QByteArray &bytes);

/// The bytes of a file. A failure ends the test.
QByteArray fileContents(const QString &path);

/// `frames` MPEG-1 layer III frames of 128 kbit/s at 44.1 kHz (417 bytes each), silent and
/// recognised as audio by every reader.
QByteArray mpegFrames(int frames);

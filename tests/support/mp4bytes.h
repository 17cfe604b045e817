#pragma once

#include <QByteArray>
#include <QStringList>

/// An atom: its size, its name, its body.
QByteArray atom(const QByteArray &name, const QByteArray &body = {});
/// The same with a size of 64 bits.
QByteArray wideAtom(const QByteArray &name, const QByteArray &body = {});
/// A 'data' atom; a metadata item that holds one.
QByteArray dataAtom(int type, const QByteArray &value);
QByteArray item(const QByteArray &name, int type, const QByteArray &value);

/// A table, 'stco' or 'co64', of the places of chunks, each named by a digit.
QByteArray placeTable(const QByteArray &name, const QByteArray &chunks);
/// A track around its table, and a movie around its tracks; both have headers with times.
QByteArray track(const QByteArray &table);
QByteArray movie(const QByteArray &tracks, const QByteArray &userData = {});
/// The user data around a list of items; what stands behind the list.
QByteArray userData(const QByteArray &items, const QByteArray &behind = {});
/// The chunks of that name.
QByteArray mediaData(const QByteArray &chunks);

/// The file with the true places of its chunks in its tables.
QByteArray withPlaces(QByteArray file);
/// What each table of the file points to: the digits of its chunks, "?" for no chunk.
QStringList chunksPointedTo(const QByteArray &file);

#pragma once

#include "app/prefscontroller.h"
#include "songs/songorder.h"

#include <QString>

#include <functional>
#include <optional>

/// What has to speak for it that a file of a source is a song.
enum class SongProof {
    Name, ///< its ending
    NameOrContents,
    None, ///< the user named it
};

/// One file that a source names.
struct SourceEntry {
    QString path;
    int databaseID = 0; ///< of the library's track; 0 when unknown
    int playlistIndex = AudioInfoTag::notFound; ///< position in the playlist, from 1 on
    SongProof proof = SongProof::Name;
};

/// Takes what a source finds.
class EntrySink {
public:
    EntrySink() = default;
    EntrySink(const EntrySink &) = delete;
    EntrySink &operator=(const EntrySink &) = delete;
    virtual ~EntrySink() = default;

    /// Whether to go on.
    virtual bool add(SourceEntry entry) = 0;
    /// What the user is told once: a path or another name, and what is wrong with it.
    virtual void problem(const QString &subject, const QString &reason) = 0;
    [[nodiscard]] virtual bool goesOn() const = 0;
};

/// What becomes of songs whose tag cannot be read: they are told of and left out, or they stay in
/// the list, and what is done with them tells why it fails.
enum class UnreadableSongs { LeaveOut, Keep };

/// Where the songs of the list come from.
struct SongSource {
    SourceKind kind = SourceKind::Folder;
    QString name; ///< the folder's path or the playlist's name
    QString windowTitle;
    QString progressText; ///< shown while it is read
    /// How the list is sorted once it is read; null: as it was sorted before.
    SongOrder::Comparison order = nullptr;
    UnreadableSongs unreadable = UnreadableSongs::LeaveOut;
    /// Hands over all entries in order. Called once, on a thread of its own.
    std::function<void(EntrySink &)> readEntries;
};

#pragma once

#include "base/clock.h"
#include "gathering/sourceoutages.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

struct SongOutcome;

/// The songs that some source could not be asked about, kept in a file until it was. Programs may
/// share the file: each puts in its own changes alone.
class RetryList {
public:
    /// More are not kept; the oldest go.
    static constexpr qsizetype mostSongs = 100'000;

    /// "retry.json" in the user's state folder.
    [[nodiscard]] static QString usualFile();

    explicit RetryList(QString file = usualFile(), const Clock &clock = systemClock());

    /// Of the listed songs, by absolute paths, the oldest first.
    struct Songs {
        QStringList there;
        QStringList gone; ///< their folders are there
        int away = 0; ///< how many stand in folders that are not there now, and may come back
        QString problem; ///< why the file cannot be read; empty when it can or there is none
    };
    /// Forgets those that are gone.
    [[nodiscard]] Songs takeUp();
    [[nodiscard]] const QString &file() const { return mFile; }

    /// What became of a song of which `wanted` was to be gathered. What a source was asked about,
    /// or the song has by now, is settled; of a song that failed only what was not asked counts.
    void note(const SongOutcome &outcome, Assets wanted);

    /// Whether changes have waited for long enough to be saved, so that little is lost when the
    /// program is ended the hard way.
    [[nodiscard]] bool isSaveDue() const;
    struct Saved {
        QString failure; ///< why the file could not be written
        QString problem; ///< what was wrong with the file, which counted as empty
    };
    /// Puts the changes into the file. Those that could not be saved are kept for the next time.
    [[nodiscard]] Saved save();

private:
    using Unasked = QMap<QString, Assets>; ///< by class name, what is missing

    struct Entry {
        QString path;
        Unasked unasked;

        bool operator==(const Entry &) const = default;
    };
    using Entries = QList<Entry>;

    struct Change {
        Assets settled;
        Unasked unasked{};
        bool isGone = false;

        void applyTo(Unasked &former) const;
    };

    struct Contents {
        Entries entries;
        QString problem;
    };

    [[nodiscard]] Contents read() const;
    [[nodiscard]] static Contents parsed(const QByteArray &data);
    [[nodiscard]] static Entries changed(Entries entries, const QHash<QString, Change> &changes);
    [[nodiscard]] QString write(const Entries &entries) const;

    QString mFile;
    const Clock &mClock;
    Clock::Time mLastSave;
    QHash<QString, Change> mChanges; ///< by path
};

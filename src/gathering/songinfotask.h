#pragma once

#include "gathering/albumlist.h"
#include "gathering/gathercontext.h"
#include "songs/songfile.h"

#include <QMap>
#include <QObject>

class GatheringSteps;

/// Gathers what one song lacks: first from other songs of its album, then from the web sources,
/// all at once or one after the other. The song's tag is filled in memory; writing it is the
/// caller's business.
class SongInfoTask : public QObject {
    Q_OBJECT

public:
    SongInfoTask(std::shared_ptr<SongFile> song, GatherContext &context);
    ~SongInfoTask() override;

    // The user's choices, set before the task starts.
    void setAlbumSelectionMethod(AlbumPick method);
    void setAllowSubstringTrackMatches(Substrings allowed);
    /// Pixels; narrower artwork is refused. 0 when not set.
    void setMinimumAcceptableImageSize(float width);
    /// Pixels; artwork with a longer side is scaled down to it. 32768 when not set.
    void setMaximumImageSize(float side);
    void setIgnoreNonSquareArt(bool ignore);
    void setParallelMode(bool parallel);
    /// Songs without names are known by their sound, where the context has the means; off when not
    /// set.
    void setIdentify(bool identify);
    // Each works out anew what is desired, so that the order of the two does not matter.
    void setGatherFlags(Assets assets);
    void setOverwriteFlags(Assets assets);

    /// The album title to search for: that of the tag, with " Soundtrack" where the genres say
    /// so and the title does not.
    [[nodiscard]] std::optional<QString> albumTitle() const;

    /// Starts, once; finished() follows on a later turn of the event loop, exactly once, also when
    /// nothing is desired, no source can help or the task was cancelled before.
    void gather();
    /// The same with an album that the user took, in place of what sources find: nothing is asked
    /// of them but its artwork, where the album has none.
    void gatherFrom(const AlbumInfo &album);
    /// Winds down: what runs is cancelled, nothing more is applied, and finished() still follows.
    void cancel();

    [[nodiscard]] const std::shared_ptr<SongFile> &song() const;
    [[nodiscard]] Progress &progress();
    [[nodiscard]] Assets changedAssetFlags() const;
    /// What is still missing.
    [[nodiscard]] Assets desiredAssetFlags() const;
    /// Whether the song is to be known by its sound, which may give it names even where nothing
    /// else is missing.
    [[nodiscard]] bool mayBeIdentified() const;
    [[nodiscard]] bool wasStarted() const;
    [[nodiscard]] bool wasCancelled() const;
    /// Why nothing was applied, for the user.
    [[nodiscard]] std::optional<QString> errorMessage() const;
    /// Which source each changed asset came from: its class name, or "library".
    [[nodiscard]] const QMap<Asset, QString> &sourcesOfAssets() const;
    /// Whether the song has no words, so that none are missing.
    [[nodiscard]] bool isInstrumental() const;
    /// How many albums were left to choose from when none was chosen; 0 otherwise.
    [[nodiscard]] int undecidedCandidates() const;
    /// What the sources answered, why the album was chosen or none, and why each field was set or
    /// not; once the task has ended.
    [[nodiscard]] ChoiceRecord choices() const;
    /// The albums of its candidates, in the same order.
    [[nodiscard]] const AlbumList &candidateAlbums() const;
    /// Those that gave no answer about what is still missing.
    [[nodiscard]] QList<UnaskedSource> unaskedSources() const;

Q_SIGNALS:
    void finished();

private:
    std::unique_ptr<GatheringSteps> d;
};

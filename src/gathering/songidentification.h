#pragma once

#include "gathering/acoustidlookup.h"

#include <memory>

class FingerprintRun;

/// What it takes to know songs by their sound; the same for all songs of a run.
struct IdentifyingMeans {
    QString clientKey; ///< of the user
    QString fingerprintProgram; ///< its path
    QString refusal{}; ///< why the service answers this key no more; empty as long as it does
};

/// Finds out by its sound what one song is: its fingerprint is made, and the service is asked.
class SongIdentification : public QObject {
    Q_OBJECT

public:
    /// `means` and `queue` must outlive it.
    SongIdentification(IdentifyingMeans &means, SiteDefinition definition, HVHTTPQueue &queue);
    ~SongIdentification() override;

    /// finished() follows on a later turn, exactly once.
    void start(const QString &path, const KnownOfSong &known);
    /// May come at any time after start(); finished() still follows.
    void cancel();
    [[nodiscard]] const std::optional<SongIdentity> &song() const { return mSong; }
    /// Why the song was not identified, for the user.
    [[nodiscard]] const QString &problem() const { return mProblem; }
    /// Whether the service was asked and gave no answer.
    [[nodiscard]] bool wasUnanswered() const;
    /// Whether it was asked at all.
    [[nodiscard]] bool wasAsked() const { return mLookup != nullptr; }

Q_SIGNALS:
    void finished();

private:
    void gotFingerprint();
    void gotAnswer();
    void end(const QString &problem);

    IdentifyingMeans &mMeans;
    SiteDefinition mDefinition;
    HVHTTPQueue &mQueue;
    KnownOfSong mKnown;
    std::unique_ptr<FingerprintRun> mFingerprint;
    std::unique_ptr<AcoustIDLookup> mLookup;
    std::optional<SongIdentity> mSong;
    QString mProblem;
    bool mIsCancelled = false;
};

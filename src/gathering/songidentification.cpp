#include "gathering/songidentification.h"

#include "base/nextturn.h"
#include "gathering/fingerprintrun.h"
#include "tags/songlength.h"

#include <QCoreApplication>

namespace {

/// 0 when it cannot be told.
int secondsOfSong(const QString &path)
{
    const auto length = songLengthAt(path);
    return length ? static_cast<int>(std::chrono::round<std::chrono::seconds>(*length).count()) : 0;
}

} // namespace

SongIdentification::SongIdentification(IdentifyingMeans &means, SiteDefinition definition,
                                       HVHTTPQueue &queue)
    : mMeans(means)
    , mDefinition(std::move(definition))
    , mQueue(queue)
{
}

SongIdentification::~SongIdentification() = default;

void SongIdentification::start(const QString &path, const KnownOfSong &known)
{
    mKnown = known;
    mKnown.seconds = secondsOfSong(path);
    if (!mMeans.refusal.isEmpty())
        return end(mMeans.refusal);
    if (mKnown.seconds == 0)
        return end(qtTrId("ErrorNoLength"));
    mFingerprint = std::make_unique<FingerprintRun>(mMeans.fingerprintProgram, path);
    connect(mFingerprint.get(), &FingerprintRun::finished, this,
            &SongIdentification::gotFingerprint);
    mFingerprint->start();
}

void SongIdentification::cancel()
{
    mIsCancelled = true;
    if (mLookup)
        mLookup->cancelSearch();
    else if (mFingerprint)
        mFingerprint->cancel();
}

void SongIdentification::gotFingerprint()
{
    if (mIsCancelled || mFingerprint->fingerprint().isEmpty())
        return end(mFingerprint->problem());
    mLookup = std::make_unique<AcoustIDLookup>(
        mDefinition, mQueue,
        AcoustIDLookup::Question{mMeans.clientKey, mFingerprint->fingerprint(), mKnown});
    connect(mLookup.get(), &AcoustIDLookup::searchComplete, this, &SongIdentification::gotAnswer);
    mLookup->beginSearch();
}

void SongIdentification::gotAnswer()
{
    const AcoustIDAnswer &answer = mLookup->answer();
    if (answer.isKeyRefused)
        mMeans.refusal = answer.problem;
    if (!mIsCancelled)
        mSong = answer.song;
    const bool isUnknown = !mSong && answer.problem.isEmpty();
    end(isUnknown ? qtTrId("ErrorSoundUnknown") : answer.problem);
}

bool SongIdentification::wasUnanswered() const
{
    return mLookup && (mLookup->wasUnanswered() || mLookup->answer().isStrange);
}

void SongIdentification::end(const QString &problem)
{
    mProblem = problem;
    onNextTurn(this, [this] { Q_EMIT finished(); });
}

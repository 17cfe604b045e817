#include "gathering/artworkfetch.h"

#include "gathering/fetchobstacle.h"
#include "gathering/fieldreasons.h"

ArtworkFetch::ArtworkFetch(HVHTTPQueue &queue, QObject *owner, Progress &progress)
    : mQueue(queue)
    , mOwner(owner)
    , mProgress(progress)
{
}

/// The queue must not follow a bar that is gone.
ArtworkFetch::~ArtworkFetch()
{
    cancel();
}

void ArtworkFetch::cancel()
{
    if (!mURL.isEmpty())
        mQueue.cancelURL(mURL, mOwner);
}

void ArtworkFetch::start(const QUrl &url, const ArtworkLimits &limits, Callback then)
{
    mURL = url;
    const auto got = [this, limits, then = std::move(then)](const FetchResult &result) {
        mURL.clear();
        gotPicture(result, limits, then);
    };
    mQueue.addURLUsingIndicator(url, mOwner, got, &mProgress);
}

void ArtworkFetch::gotPicture(const FetchResult &result, const ArtworkLimits &limits,
                              const Callback &then)
{
    const bool unanswered = isUnanswered(result);
    const FieldReason notFetched{.kind = FieldReason::Kind::PictureNotFetched};
    if (result.data.isEmpty())
        return then({{}, notFetched, unanswered});
    const bool isErrorPage = result.status >= 400;
    const auto checked = [=](const std::optional<AdjustedImage> &adjusted) {
        const bool isFetched = adjusted || !isErrorPage;
        then({adjusted, isFetched ? pictureReason(result.data, adjusted, limits) : notFetched,
              unanswered});
    };
    adjustImageInBackground(result.data, limits, mOwner, checked);
}

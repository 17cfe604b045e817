#pragma once

#include "gathering/artworkcheck.h"
#include "gathering/choicerecord.h"
#include "gathering/httpqueue.h"

class Progress;

/// Fetches pictures, one after the other, and checks them.
class ArtworkFetch {
public:
    struct Outcome {
        std::optional<AdjustedImage> picture; ///< when it fits
        FieldReason reason;
        bool isUnanswered = false; ///< its host gave no answer
    };
    using Callback = std::function<void(const Outcome &)>;

    /// `owner` is whom the callbacks are for: when it is gone, none follows any more. All three
    /// must outlive this object.
    ArtworkFetch(HVHTTPQueue &queue, QObject *owner, Progress &progress);
    ArtworkFetch(const ArtworkFetch &) = delete;
    ArtworkFetch &operator=(const ArtworkFetch &) = delete;
    ~ArtworkFetch();

    /// `then` follows on a later turn, exactly once. Only after that the next may start.
    void start(const QUrl &url, const ArtworkLimits &limits, Callback then);
    /// The callback comes soon, and mostly without a picture.
    void cancel();

private:
    void gotPicture(const FetchResult &result, const ArtworkLimits &limits, const Callback &then);

    HVHTTPQueue &mQueue;
    QObject *mOwner;
    Progress &mProgress;
    QUrl mURL; ///< being fetched; empty when none is
};

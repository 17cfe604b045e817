#include "gathering/httpload.h"

#include "gathering/cleartext.h"
#include "gathering/fetchable.h"

#include <utility>

namespace {
/// What is read from the reply at a time, so that a decompressed flood is noticed early.
constexpr qint64 pieceBytes = 262'144;
/// What the network library may read ahead of us.
constexpr qint64 readAheadBytes = 1'048'576;

/// The type without parameters; a response that names none is taken for plain bytes.
QString typeOf(const QNetworkReply &reply)
{
    const QString header = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    const QString type = header.section(QLatin1Char(';'), 0, 0).trimmed().toLower();
    return type.isEmpty() ? QStringLiteral("application/octet-stream") : type;
}

int statusOf(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

/// Where the server sends us instead; invalid when it does not.
QUrl redirectOf(const QNetworkReply &reply)
{
    const int status = statusOf(reply);
    if (status != 301 && status != 302 && status != 303 && status != 307 && status != 308)
        return {};
    const QByteArray location = reply.rawHeader("Location");
    return location.isEmpty() ? QUrl() : reply.url().resolved(QUrl::fromEncoded(location));
}

bool forbidsStoring(const QNetworkReply &reply)
{
    return reply.rawHeader("Cache-Control").toLower().contains("no-store");
}
} // namespace

FetchError notFetchableError(const QUrl &url)
{
    return {FetchError::unknown, qtTrId("ErrorAddressNotFetched").arg(url.toDisplayString()), true};
}

HttpLoad::HttpLoad(ConnectionPool &pool, HttpMessage message, const Bounds &bounds,
                   OnlineCheck isOnline)
    : mPool(pool)
    , mMessage(std::move(message))
    , mBounds(bounds)
    , mIsOnline(std::move(isOnline))
    , mCameInTheClear(isInTheClear(mMessage.request.url()))
{
    for (QTimer *timer : {&mSilence, &mTotal}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] {
            fail({FetchError::timedOut, qtTrId("ErrorTimedOut")});
        });
    }
    mTurn.setSingleShot(true);
    connect(&mTurn, &QTimer::timeout, this, &HttpLoad::send);
    mTotal.start(mBounds.total);
    send();
}

HttpLoad::~HttpLoad()
{
    cutOff();
}

void HttpLoad::send()
{
    mSilence.start(mBounds.silence);
    mReply = mPool.send(mMessage);
    mReply->setReadBufferSize(readAheadBytes);
    connect(mReply, &QNetworkReply::metaDataChanged, this, &HttpLoad::takeResponse);
    connect(mReply, &QNetworkReply::readyRead, this, &HttpLoad::takeData);
    connect(mReply, &QNetworkReply::finished, this, &HttpLoad::takeEnd);
}

void HttpLoad::cutOff()
{
    mSilence.stop();
    mTotal.stop();
    mTurn.stop();
    dropReply();
}

void HttpLoad::dropReply()
{
    QNetworkReply *reply = mReply;
    mReply = nullptr;
    if (!reply)
        return;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

/// A form that is redirected becomes a plain request, unless the server says to send it again.
void HttpLoad::followTo(const QUrl &target)
{
    if (!isFetchable(target)) {
        fail(notFetchableError(target));
        return;
    }
    if (++mRedirects > mBounds.redirects) {
        fail({FetchError::unknown, qtTrId("ErrorTooManyRedirects")});
        return;
    }
    const int status = statusOf(*mReply);
    if (mMessage.method == FetchMethod::Post && status != 307 && status != 308) {
        mMessage.method = FetchMethod::Get;
        mMessage.request.setHeader(QNetworkRequest::ContentTypeHeader, {});
    }
    mMessage.request.setUrl(target);
    mCameInTheClear = mCameInTheClear || isInTheClear(target);
    mData.clear();
    dropReply();
    mSilence.stop();
    mTurn.start(mBounds.turnOfRedirect(target.host()));
}

void HttpLoad::takeResponse()
{
    mSilence.start();
    mHasResponse = true;
    mMIMEType = typeOf(*mReply);
    const QVariant length = mReply->header(QNetworkRequest::ContentLengthHeader);
    Q_EMIT responded(length.isValid() ? length.toLongLong() : -1);
}

void HttpLoad::takeData()
{
    mSilence.start();
    while (mReply) {
        const QByteArray piece = mReply->read(pieceBytes);
        if (piece.isEmpty())
            break;
        mData += piece;
        if (isCutPage()) {
            finish(false);
        } else if (mData.size() > mBounds.bodyBytes) {
            const qint64 megabytes = mBounds.bodyBytes / 1'048'576;
            fail({FetchError::unknown, qtTrId("ErrorResponseTooLong").arg(megabytes), true});
        } else {
            Q_EMIT received(mData.size(), piece.size());
        }
    }
}

/// Whether the page has reached the length at which pages are cut. Other types never are.
bool HttpLoad::isCutPage() const
{
    return mBounds.htmlBytes > 0 && mData.size() >= mBounds.htmlBytes
        && mMIMEType == QLatin1String("text/html");
}

void HttpLoad::takeEnd()
{
    takeData();
    if (!mReply)
        return;
    const QNetworkReply::NetworkError error = mReply->error();
    const QUrl redirect = redirectOf(*mReply);
    if (!redirect.isEmpty())
        followTo(redirect);
    else if (error == QNetworkReply::NoError || isOnlyHttpStatus(error, statusOf(*mReply)))
        finish(true);
    else
        fail(fetchErrorFor(error, mReply->errorString(), mIsOnline()));
}

void HttpLoad::fail(const FetchError &error)
{
    if (!mReply && !mTurn.isActive())
        return;
    LoadOutcome failure;
    failure.status = mReply ? statusOf(*mReply) : 0;
    failure.error = error;
    failure.finalURL = mMessage.request.url();
    cutOff();
    Q_EMIT ended(failure);
}

void HttpLoad::finish(bool isWhole)
{
    LoadOutcome success;
    success.status = statusOf(*mReply);
    success.MIMEType = mMIMEType;
    success.cameInTheClear = mCameInTheClear;
    success.finalURL = mMessage.request.url();
    success.retryAfter = mReply->rawHeader("Retry-After");
    success.mayBeStored =
        isWhole && success.status == 200 && !mData.isEmpty() && !forbidsStoring(*mReply);
    success.data = std::move(mData);
    cutOff();
    Q_EMIT ended(success);
}

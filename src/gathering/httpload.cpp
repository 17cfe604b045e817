#include "gathering/httpload.h"

#include "gathering/fetchable.h"
#include "gathering/fetcherrors.h"

namespace {
/// What is read from the reply at a time, so that a decompressed flood is noticed early.
constexpr qint64 pieceBytes = 256 * 1024;
/// What the network library may read ahead of us.
constexpr qint64 readAheadBytes = 1024 * 1024;

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

bool forbidsStoring(const QNetworkReply &reply)
{
    return reply.rawHeader("Cache-Control").toLower().contains("no-store");
}

bool isInTheClear(const QUrl &url)
{
    return url.scheme() != QLatin1String("https");
}
} // namespace

FetchError notFetchableError(const QUrl &url)
{
    return {FetchError::unknown, qtTrId("ErrorAddressNotFetched").arg(url.toDisplayString())};
}

HttpLoad::HttpLoad(QNetworkReply *reply, const Bounds &bounds)
    : mReply(reply)
    , mBounds(bounds)
    , mCameInTheClear(isInTheClear(reply->url()))
{
    reply->setReadBufferSize(readAheadBytes);
    connect(reply, &QNetworkReply::redirected, this, &HttpLoad::takeRedirect);
    connect(reply, &QNetworkReply::metaDataChanged, this, &HttpLoad::takeResponse);
    connect(reply, &QNetworkReply::readyRead, this, &HttpLoad::takeData);
    connect(reply, &QNetworkReply::finished, this, &HttpLoad::takeEnd);
    for (QTimer *timer : {&mSilence, &mTotal}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] {
            fail({FetchError::timedOut, qtTrId("ErrorTimedOut")});
        });
    }
    mSilence.start(bounds.silence);
    mTotal.start(bounds.total);
}

HttpLoad::~HttpLoad()
{
    cutOff();
}

void HttpLoad::cutOff()
{
    mSilence.stop();
    mTotal.stop();
    QNetworkReply *reply = mReply;
    if (!reply)
        return;
    mReply = nullptr;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

void HttpLoad::takeRedirect(const QUrl &target)
{
    mSilence.start();
    mData.clear();
    mCameInTheClear = mCameInTheClear || isInTheClear(target);
    if (isFetchable(target))
        Q_EMIT mReply->redirectAllowed();
    else
        fail(notFetchableError(target));
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
            const qint64 megabytes = mBounds.bodyBytes / (1024 * 1024);
            fail({FetchError::unknown, qtTrId("ErrorResponseTooLong").arg(megabytes)});
        } else {
            Q_EMIT received(mData.size());
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
    if (error == QNetworkReply::NoError || isOnlyHttpStatus(error, statusOf(*mReply)))
        finish(true);
    else
        fail(fetchErrorFor(error, mReply->errorString(), machineIsOnline()));
}

void HttpLoad::fail(const FetchError &error)
{
    if (!mReply)
        return;
    LoadOutcome failure;
    failure.status = statusOf(*mReply);
    failure.error = error;
    cutOff();
    Q_EMIT ended(failure);
}

void HttpLoad::finish(bool isWhole)
{
    LoadOutcome success;
    success.status = statusOf(*mReply);
    success.MIMEType = mMIMEType;
    success.cameInTheClear = mCameInTheClear;
    success.retryAfter = mReply->rawHeader("Retry-After");
    success.mayBeStored = isWhole && success.status == 200 && !forbidsStoring(*mReply);
    success.data = std::move(mData);
    cutOff();
    Q_EMIT ended(success);
}

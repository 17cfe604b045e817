#include "gathering/fetcherrors.h"

#include <QNetworkInterface>

#include <algorithm>

namespace {
int codeFor(QNetworkReply::NetworkError error, bool isOnline)
{
    switch (error) {
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
        return FetchError::timedOut;
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::ProxyNotFoundError:
        return isOnline ? FetchError::cannotFindHost : FetchError::notConnectedToInternet;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::ProxyConnectionRefusedError:
        return FetchError::cannotConnectToHost;
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError: // such as "network unreachable"
        return isOnline ? FetchError::unknown : FetchError::notConnectedToInternet;
    default:
        return FetchError::unknown;
    }
}
} // namespace

FetchError fetchErrorFor(QNetworkReply::NetworkError error, const QString &description,
                         bool isOnline)
{
    return {codeFor(error, isOnline), description};
}

bool machineIsOnline()
{
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface &each) {
        return each.flags().testFlag(QNetworkInterface::IsRunning)
            && !each.flags().testFlag(QNetworkInterface::IsLoopBack)
            && !each.addressEntries().isEmpty();
    });
}

bool blamesHost(const FetchError &error)
{
    return error.code == FetchError::timedOut || error.code == FetchError::cannotFindHost
        || error.code == FetchError::cannotConnectToHost;
}

bool isOnlyHttpStatus(QNetworkReply::NetworkError error, int status)
{
    return status >= 400
        && (error >= QNetworkReply::ContentAccessDenied
            || error == QNetworkReply::ProxyAuthenticationRequiredError);
}

#include "gathering/fetch.h"

#include "base/progress.h"

#include <algorithm>

bool Fetch::isWanted() const
{
    return std::any_of(askers.begin(), askers.end(),
                       [](const Asker &asker) { return asker.owed.isWanted(); });
}

HttpMessage Fetch::message(const QString &agent) const
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, agent);
    if (method == FetchMethod::Post)
        request.setHeader(QNetworkRequest::ContentTypeHeader,
                          QStringLiteral("application/x-www-form-urlencoded"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    return {method, request, body};
}

QString Fetch::status() const
{
    if (!load)
        return QStringLiteral("-Queued-");
    if (!load->hasResponse())
        return QStringLiteral("-Wait-");
    return QStringLiteral("%1 bytes").arg(load->bytesReceived());
}

void Fetch::showExpected(qint64 bytes) const
{
    if (!indicator || bytes <= 0)
        return;
    indicator->setIndeterminate(false);
    indicator->setMaximum(static_cast<double>(bytes));
    indicator->setValue(0);
}

void Fetch::showReceived(qint64 bytes) const
{
    if (indicator)
        indicator->setValue(static_cast<double>(bytes));
}

#include "gathering/fetchobstacle.h"

#include <algorithm>
#include <array>

namespace {

struct ChallengeSign {
    const char *text; ///< in any case
    const char *reason;
};

/// Pieces that stand on pages which let nobody through who is no browser with a person before it,
/// and on no page about music.
constexpr std::array challengeSigns{
    ChallengeSign{"<title>Just a moment...</title>", "a challenge page (\"Just a moment...\")"},
    ChallengeSign{"/cdn-cgi/challenge-platform/", "a challenge page (Cloudflare)"},
    ChallengeSign{"Attention Required! | Cloudflare", "a page that refuses us (Cloudflare)"},
    ChallengeSign{"Checking your browser before accessing", "a challenge page (browser check)"},
    ChallengeSign{"_Incapsula_Resource", "a challenge page (Imperva)"},
    ChallengeSign{"Pardon Our Interruption", "a challenge page (\"Pardon Our Interruption\")"},
    ChallengeSign{"geo.captcha-delivery.com", "a challenge page (DataDome)"},
    ChallengeSign{"Access to this page has been denied", "a page that refuses us"},
    ChallengeSign{"class=\"g-recaptcha\"", "a captcha"},
    ChallengeSign{"class=\"h-captcha\"", "a captcha"},
    ChallengeSign{"class=\"cf-turnstile\"", "a captcha"},
    ChallengeSign{"unusual traffic from your computer network", "a page against robots"},
    ChallengeSign{"Making sure you&#39;re not a bot", "a challenge page (Anubis)"},
};

/// The signs stand at the front of such pages, which are short.
constexpr qsizetype searchedForSigns = 100'000; // characters

constexpr int firstStatusOfServerError = 500;

std::optional<FetchObstacle> challengeOn(const FetchResult &result)
{
    if (result.MIMEType.value_or(QString()).startsWith(QLatin1String("image/")))
        return std::nullopt;
    const QByteArrayView data(result.data);
    const QString page = QString::fromLatin1(data.first(std::min(data.size(), searchedForSigns)));
    const auto sign =
        std::find_if(challengeSigns.begin(), challengeSigns.end(), [&](const ChallengeSign &each) {
            return page.contains(QLatin1String(each.text), Qt::CaseInsensitive);
        });
    if (sign == challengeSigns.end())
        return std::nullopt;
    return FetchObstacle{Obstacle::Blocked, QString::fromUtf8(sign->reason)};
}

} // namespace

std::optional<FetchObstacle> obstacleOf(const FetchResult &result)
{
    const QString status = QStringLiteral("status %1").arg(result.status);
    if (result.status == 401 || result.status == 403 || result.status == 429)
        return FetchObstacle{Obstacle::Blocked, status};
    if (const auto challenge = challengeOn(result))
        return challenge;
    if (result.error)
        return FetchObstacle{Obstacle::NotReachable, result.error->localizedDescription};
    if (result.status >= 400)
        return FetchObstacle{Obstacle::NotReachable, status};
    return std::nullopt;
}

bool isUnanswered(const FetchResult &result)
{
    if (result.error)
        return !result.error->isOurRefusal;
    if (result.status >= firstStatusOfServerError)
        return true;
    const auto obstacle = obstacleOf(result);
    return obstacle && obstacle->kind == Obstacle::Blocked;
}

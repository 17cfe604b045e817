#include "cli/progressline.h"

#include "cli/terminaltext.h"

#include <cstdio>

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX
bool standardErrorIsTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

int terminalColumns()
{
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}
#else
bool standardErrorIsTerminal()
{
    return false;
}

int terminalColumns()
{
    return 80;
}
#endif

QString timeLeft(double seconds)
{
    if (seconds < 90)
        return QStringLiteral("%1 s left").arg(qRound(seconds));
    if (seconds < 90 * 60)
        return QStringLiteral("%1 min left").arg(qRound(seconds / 60));
    return QStringLiteral("%1 h left").arg(seconds / 3600, 0, 'f', 1);
}

} // namespace

QString progressText(const QString &song, int done, int total, qint64 milliseconds, int columns)
{
    QString text = QStringLiteral("%1/%2").arg(done).arg(total);
    if (done > 0 && milliseconds > 0) {
        const double perSecond = done * 1000.0 / static_cast<double>(milliseconds);
        text += QStringLiteral("  %1 songs/min  %2")
                    .arg(qRound(perSecond * 60))
                    .arg(timeLeft((total - done) / perSecond));
    }
    return QStringLiteral("%1  %2").arg(text, terminalLine(song)).left(columns);
}

ProgressLine::ProgressLine()
    : mIsTerminal(standardErrorIsTerminal())
{
    mElapsed.start();
}

ProgressLine::~ProgressLine()
{
    clear();
}

void ProgressLine::show(const QString &song, int done, int total)
{
    if (!mIsTerminal)
        return;
    // The last column stays free: writing into it makes some terminals begin a new line.
    const QString text = progressText(song, done, total, mElapsed.elapsed(), terminalColumns() - 1);
    std::fprintf(stderr, "\r\x1b[K%s", text.toUtf8().constData());
    std::fflush(stderr);
    mIsShown = true;
}

void ProgressLine::clear()
{
    if (mIsShown)
        std::fprintf(stderr, "\r\x1b[K");
    mIsShown = false;
}

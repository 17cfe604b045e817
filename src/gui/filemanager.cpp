#include "gui/filemanager.h"

#include "base/background.h"
#include "itunes/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include <atomic>

namespace {

using namespace std::chrono_literals;

constexpr auto patienceWithBus = 1s;
constexpr int patienceWithManager = 5000; // milliseconds; it may have to be started
/// Of more, the folders would cover the screen.
constexpr qsizetype mostFiles = 50;

/// Used on a thread of its own, since the bus and the file manager may take their time.
bool showByBus(const QStringList &urls)
{
    if (!sessionBusAnswers(patienceWithBus))
        return false;
    static std::atomic<int> calls = 0; // each has a connection of its own
    const QString name = QStringLiteral("tagwright file manager %1").arg(++calls);
    bool isShown = false;
    {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.FileManager1"),
            QStringLiteral("/org/freedesktop/FileManager1"),
            QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
        message << urls << QString();
        isShown = bus.call(message, QDBus::Block, patienceWithManager).type()
            == QDBusMessage::ReplyMessage;
    }
    QDBusConnection::disconnectFromBus(name);
    return isShown;
}

} // namespace

void showInFileManager(const QStringList &paths, QObject *owner,
                       const std::function<void(const QString &folder)> &failed)
{
    QStringList urls;
    for (const QString &path : paths.first(qMin(paths.size(), mostFiles)))
        urls << QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    if (urls.isEmpty())
        return;
    const QString folder = QFileInfo(paths.first()).absolutePath();
    runInBackground([urls] { return showByBus(urls); }, owner,
                    [folder, failed](bool isShown) {
                        if (!isShown && !QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
                            failed(folder);
                    });
}

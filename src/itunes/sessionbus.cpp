#include "itunes/sessionbus.h"

#include "base/descriptor.h"

#include <QByteArray>
#include <QList>

#include <cstddef>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>

namespace {

/// Name of a socket: a path, or one without a file, which begins with a zero byte. Empty for
/// addresses of another kind.
QByteArray socketOf(const QByteArray &address)
{
    if (!address.startsWith("unix:"))
        return {};
    for (const QByteArray &pair : address.sliced(5).split(',')) {
        const qsizetype value = pair.indexOf('=') + 1;
        const QByteArray key = pair.first(value);
        if (key == "path=")
            return QByteArray::fromPercentEncoding(pair.sliced(value));
        if (key == "abstract=")
            return '\0' + QByteArray::fromPercentEncoding(pair.sliced(value));
    }
    return {};
}

QByteArray socketOfSessionBus()
{
    const QByteArray addresses = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
    if (!addresses.isEmpty())
        return socketOf(addresses.split(';').first());
    return runtimeFolder.isEmpty() ? QByteArray() : runtimeFolder + "/bus";
}

Descriptor connectedTo(const QByteArray &name)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (name.isEmpty() || static_cast<size_t>(name.size()) >= sizeof address.sun_path)
        return {};
    std::memcpy(address.sun_path, name.constData(), static_cast<size_t>(name.size()));
    const auto length = offsetof(sockaddr_un, sun_path) + static_cast<size_t>(name.size());
    Descriptor bus(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const auto *const generic = reinterpret_cast<const sockaddr *>(&address);
    const bool isOpen = bus && ::connect(bus.get(), generic, static_cast<socklen_t>(length)) == 0;
    return isOpen ? std::move(bus) : Descriptor();
}

} // namespace

bool sessionBusAnswers(std::chrono::milliseconds limit)
{
    const Descriptor bus = connectedTo(socketOfSessionBus());
    // The zero byte begins every connection; a bus answers what it does not know, too.
    constexpr char greeting[] = "\0AUTH\r\n";
    constexpr size_t length = sizeof greeting - 1;
    if (!bus || ::send(bus.get(), greeting, length, MSG_NOSIGNAL) != ssize_t{length})
        return false;
    pollfd answer = {bus.get(), POLLIN, 0};
    return ::poll(&answer, 1, static_cast<int>(limit.count())) == 1
        && (answer.revents & POLLIN) != 0;
}

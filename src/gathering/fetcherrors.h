#pragma once

#include "gathering/fetchresult.h"

#include <QNetworkReply>

#include <functional>

/// Whether this machine has a network at all.
using OnlineCheck = std::function<bool()>;

/// The program's error for one of the network library. Where this machine has no network,
/// "not found" and "unreachable" say so (-1009); the description stays the library's own.
FetchError fetchErrorFor(QNetworkReply::NetworkError error, const QString &description,
                         bool isOnline);

/// Whether any interface beyond loopback is up and has an address.
bool machineIsOnline();

/// Whether the host of a load that failed so is left alone for a while.
bool blamesHost(const FetchError &error);

/// Whether `error` is only how the network library reports the status of a complete response,
/// which is no failure here: its body is delivered like any other.
bool isOnlyHttpStatus(QNetworkReply::NetworkError error, int status);

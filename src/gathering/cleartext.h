#pragma once

#include <QUrl>

/// Whether others on the way can read and change what comes from an address: it is neither https
/// nor on this machine.
[[nodiscard]] bool isInTheClear(const QUrl &url);

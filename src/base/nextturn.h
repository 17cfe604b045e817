#pragma once

#include <QObject>

#include <functional>

/// Runs `call` once on a later turn of the event loop, or never if `owner` is gone by then.
/// `owner` must live on the calling thread and is what the call touches.
void onNextTurn(QObject *owner, std::function<void()> call);

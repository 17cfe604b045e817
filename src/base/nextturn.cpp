#include "base/nextturn.h"

#include <QMetaObject>

#include <utility>

void onNextTurn(QObject *owner, std::function<void()> call)
{
    QMetaObject::invokeMethod(owner, std::move(call), Qt::QueuedConnection);
}

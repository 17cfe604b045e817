#include "gathering/asset.h"

#include <QtGlobal>

QStringList keysOfAssets(Assets assets)
{
    QStringList keys;
    for (const AssetName &name : assetNames)
        if (assets.testFlag(name.asset))
            keys << QLatin1String(name.key);
    return keys;
}

QString summaryOfAssets(Assets assets)
{
    QStringList texts;
    const QStringList keys = keysOfAssets(assets);
    for (const QString &key : keys)
        texts << qtTrId(qUtf8Printable(key));
    return texts.join(QStringLiteral(", "));
}

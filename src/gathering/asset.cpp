#include "gathering/asset.h"

#include <QStringList>
#include <QtGlobal>

QString summaryOfAssets(Assets assets)
{
    QStringList texts;
    for (const AssetName &name : assetNames) {
        if (assets.testFlag(name.asset))
            texts << qtTrId(name.key);
    }
    return texts.join(QStringLiteral(", "));
}

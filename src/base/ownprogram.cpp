#include "base/ownprogram.h"

#include <QCoreApplication>
#include <QFileInfo>

QString pathOfOwnProgram(const QString &name)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + u'/' + name;
    return QFileInfo::exists(beside) ? beside
                                     : folder + QStringLiteral("/../libexec/tagwright/") + name;
}

#include "base/namedpaths.h"

#include "base/folderwalk.h"
#include "base/unicodeforms.h"

#include <QFile>

#include <filesystem>

void forEachPath(const QStringList &paths, const std::function<void(const FoundPath &)> &visit,
                 const std::function<void(const QString &, const QString &)> &problem,
                 const std::function<bool()> &goesOn)
{
    const FolderVisitor visitor{
        .file =
            [&visit](const QString &path) {
                visit({path, FoundPath::Origin::InFolder});
            },
        .problem = problem,
        .goesOn = goesOn,
    };
    for (const QString &given : paths) {
        if (goesOn && !goesOn())
            return;
        const QString path = existingForm(given);
        std::error_code error;
        if (path.isNull())
            problem(given, QStringLiteral("there is no such file or folder"));
        else if (std::filesystem::is_directory(QFile::encodeName(path).constData(), error))
            walkFolder(path, visitor);
        else
            visit({path, FoundPath::Origin::Named});
    }
}

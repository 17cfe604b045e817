#include "cli/songpaths.h"

#include "base/unicodeforms.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

using Problem = std::function<void(const QString &, const QString &)>;
using Visit = std::function<void(const FoundPath &)>;

/// One name in a folder. A folder's name ends in "/" here, which puts it where its contents
/// belong when whole paths are sorted.
using Names = std::vector<std::string>;

class Walk {
public:
    Walk(const Visit &visit, const Problem &problem)
        : mVisit(visit)
        , mProblem(problem)
    {
    }

    void folder(const std::string &path)
    {
        const std::string prefix = path.ends_with('/') ? path : path + '/';
        for (const std::string &name : namesIn(path)) {
            if (name.ends_with('/'))
                folder(prefix + name);
            else
                file(prefix + name);
        }
    }

private:
    Names namesIn(const std::string &path)
    {
        Names names;
        std::error_code error;
        for (fs::directory_iterator entries(path, error), end; !error && entries != end;
             entries.increment(error)) {
            std::error_code ignored;
            const bool isFolder = entries->is_directory(ignored) && !entries->is_symlink(ignored);
            names.push_back(entries->path().filename().native() + (isFolder ? "/" : ""));
        }
        if (error)
            mProblem(QFile::decodeName(path.c_str()), QString::fromStdString(error.message()));
        std::sort(names.begin(), names.end());
        return names;
    }

    void file(const std::string &path)
    {
        const QString name = QFile::decodeName(path.c_str());
        if (QFile::encodeName(name) == path.c_str())
            mVisit({name, FoundPath::Origin::InFolder});
        else
            mProblem(name, QStringLiteral("the file name is not valid UTF-8"));
    }

    const Visit &mVisit;
    const Problem &mProblem;
};

} // namespace

void forEachPath(const QStringList &paths, const Visit &visit, const Problem &problem)
{
    Walk walk(visit, problem);
    for (const QString &given : paths) {
        const QString path = existingForm(given);
        std::error_code error;
        if (path.isNull())
            problem(given, QStringLiteral("there is no such file or folder"));
        else if (fs::is_directory(QFile::encodeName(path).constData(), error))
            walk.folder(QFile::encodeName(path).toStdString());
        else
            visit({path, FoundPath::Origin::Named});
    }
}

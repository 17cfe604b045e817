#include "base/folderwalk.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

/// Names in a folder. A folder's name ends in "/" here, which puts it where its contents belong
/// when whole paths are sorted.
using Names = std::vector<std::string>;

class Walk {
public:
    explicit Walk(const FolderVisitor &visitor)
        : mVisitor(visitor)
    {
    }

    void folder(const std::string &path)
    {
        const std::string prefix = path.ends_with('/') ? path : path + '/';
        for (const std::string &name : namesIn(path)) {
            if (!goesOn())
                return;
            if (name.ends_with('/'))
                folder(prefix + name);
            else
                file(prefix + name);
        }
    }

private:
    [[nodiscard]] bool goesOn() const { return !mVisitor.goesOn || mVisitor.goesOn(); }

    Names namesIn(const std::string &path)
    {
        Names names;
        std::error_code error;
        for (fs::directory_iterator entries(path, error), end; !error && entries != end && goesOn();
             entries.increment(error)) {
            std::error_code ignored;
            const bool isFolder = entries->is_directory(ignored) && !entries->is_symlink(ignored);
            names.push_back(entries->path().filename().native() + (isFolder ? "/" : ""));
        }
        if (error)
            mVisitor.problem(QFile::decodeName(path.c_str()),
                             QString::fromStdString(error.message()));
        std::sort(names.begin(), names.end());
        return names;
    }

    void file(const std::string &path)
    {
        const QString name = QFile::decodeName(path.c_str());
        if (QFile::encodeName(name) == path.c_str())
            mVisitor.file(name);
        else
            mVisitor.problem(name, QStringLiteral("the file name is not valid UTF-8"));
    }

    const FolderVisitor &mVisitor;
};

} // namespace

void walkFolder(const QString &folder, const FolderVisitor &visitor)
{
    Walk(visitor).folder(QFile::encodeName(folder).toStdString());
}

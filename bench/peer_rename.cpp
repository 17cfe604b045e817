// The usual careful way to change a file: "FOLDER BYTES" writes each song with BYTES more in
// front into a temporary file, syncs that, and renames it over the song.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool rewrite(const std::string &path, const std::vector<char> &head)
{
    const std::string temporary = path + ".tmp";
    const int from = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int to = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    bool ok = write(to, head.data(), head.size()) == static_cast<ssize_t>(head.size());
    std::vector<char> buffer(1 << 20);
    for (ssize_t got; ok && (got = read(from, buffer.data(), buffer.size())) > 0;)
        ok = write(to, buffer.data(), static_cast<size_t>(got)) == got;
    ok = ok && fdatasync(to) == 0;
    close(from);
    close(to);
    return ok && rename(temporary.c_str(), path.c_str()) == 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    std::vector<std::string> paths;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(argv[1]))
        if (!entry.is_directory())
            paths.push_back(entry.path().native());
    std::sort(paths.begin(), paths.end());
    const std::vector<char> head(static_cast<size_t>(std::atoi(argv[2])), 0);
    return std::all_of(paths.begin(), paths.end(),
                       [&head](const std::string &path) { return rewrite(path, head); })
        ? 0
        : 1;
}

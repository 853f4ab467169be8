#include "viewer/window/file_watch.h"

#include <algorithm>

namespace inin::viewer {

FileWatch::FileWatch()
{
    constexpr int kEvery = 1000;
    m_timer.setInterval(kEvery);
    m_timer.callOnTimeout([this] { check(); });
}

void FileWatch::watch(std::vector<StampedFile> files)
{
    // The reports of a merge may share a file.
    std::ranges::sort(files, {}, &StampedFile::path);
    const auto isSame = [](const StampedFile &a, const StampedFile &b) { return a.path == b.path; };
    files.erase(std::unique(files.begin(), files.end(), isSame), files.end());
    m_files.clear();
    for (StampedFile &file : files) m_files.push_back({file, file.stamp, file.stamp});
    m_timer.start();
}

void FileWatch::check()
{
    for (Watched &file : m_files) {
        const FileStamp now = stampOf(file.read.path);
        const bool isSettled = now == file.last;
        file.last = now;
        if (!isSettled || !now.exists || now == file.reported) continue;
        file.reported = now;
        // The call comes last: the handler may start to watch other files.
        const auto notify = onChanged;
        const std::string path = file.read.path;
        if (notify) return notify(path);
    }
}

} // namespace inin::viewer

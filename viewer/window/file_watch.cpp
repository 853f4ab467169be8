#include "viewer/window/file_watch.h"

#include <algorithm>
#include <utility>

namespace inin::viewer {

FileWatch::FileWatch(Intervals intervals) : m_intervals(intervals)
{
    m_timer.setSingleShot(true);
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
    m_timer.start(m_intervals.ordinary);
}

void FileWatch::check()
{
    std::string changed;
    bool isUnsettled = false;
    for (Watched &file : m_files) {
        const FileStamp now = stampOf(file.read.path);
        const bool isSettled = std::exchange(file.last, now) == now;
        if (!now.exists || now == file.reported) continue;
        if (!isSettled || !changed.empty()) {
            isUnsettled = true;
            continue;
        }
        file.reported = now;
        changed = file.read.path;
    }
    m_timer.start(isUnsettled ? m_intervals.changed : m_intervals.ordinary);
    // The call comes last: the handler may start to watch other files.
    if (const auto notify = onChanged; notify && !changed.empty()) notify(changed);
}

} // namespace inin::viewer

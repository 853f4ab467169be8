#pragma once

#include "viewer/io/file_stamp.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace inin::viewer {

/// Checks at intervals whether files have changed since they were read. Polling works on shared folders too, where the
/// system sends no notifications. A deleted file is not a change: the program deletes a file before it writes it anew.
class FileWatch {
public:
    /// Milliseconds from one check to the next, and to the one that follows when a file has changed.
    struct Intervals {
        int ordinary = 1000, changed = 1000;
    };
    FileWatch() : FileWatch(Intervals()) {}
    explicit FileWatch(Intervals intervals);

    void watch(std::vector<StampedFile> files);
    /// Checks now. A file has changed when two checks see the same new state, so that it is complete by then.
    void check();
    /// Called once for each new state of a file.
    std::function<void(const std::string &path)> onChanged;

private:
    struct Watched {
        StampedFile read;
        FileStamp last; ///< as at the previous check
        FileStamp reported;
    };
    const Intervals m_intervals;
    QTimer m_timer;
    std::vector<Watched> m_files;
};

} // namespace inin::viewer

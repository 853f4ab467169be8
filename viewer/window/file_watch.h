#pragma once

#include "viewer/io/file_stamp.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace inin::viewer {

/// Looks now and then whether files are still as they were read. Looking works on shared folders too, where a system's
/// own notices do not come. A file that is gone is no change: the program that writes it deletes it first.
class FileWatch {
public:
    FileWatch();

    void watch(std::vector<StampedFile> files);
    /// Looks at once. A file counts as changed when two looks see it the same, so that it is whole by then.
    void look();
    /// Called once for each new state of a file.
    std::function<void(const std::string &path)> onChanged;

private:
    struct Watched {
        StampedFile read;
        FileStamp last; ///< as the look before saw it
        FileStamp told;
    };
    QTimer m_timer;
    std::vector<Watched> m_files;
};

} // namespace inin::viewer

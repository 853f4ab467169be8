#pragma once

#include <string>
#include <vector>

namespace inin {

/// A folder to choose from.
struct FolderPlace {
    std::string name;
    std::string path; ///< in the system's notation
};

/// A folder with the folders above and inside it.
struct FolderContents {
    std::string drive;               ///< one of Folders::drives
    std::vector<FolderPlace> above;  ///< from the root of the drive down to the folder itself
    std::vector<FolderPlace> inside; ///< sorted by name
};

/// The drives and folders of the system, for a folder dialog.
class Folders {
public:
    Folders() = default;
    Folders(const Folders &) = delete;
    Folders &operator=(const Folders &) = delete;
    virtual ~Folders() = default;

    /// The drives on Windows, the mount points elsewhere.
    [[nodiscard]] virtual std::vector<std::string> drives() = 0;
    /// Reads a folder; a drive alone means its root. Errors: 71 drive not ready, 75 access denied, 76 no such folder.
    [[nodiscard]] virtual FolderContents open(const std::string &path) = 0;
};

} // namespace inin

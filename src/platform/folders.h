#pragma once

#include <string>
#include <vector>

namespace inin {

/// A folder to choose from.
struct FolderPlace {
    std::string name;
    std::string path; ///< as the system writes it
};

/// A folder as a list of folders shows it.
struct FolderContents {
    std::string drive;               ///< where it lies, one of Folders::drives
    std::vector<FolderPlace> above;  ///< from the root of the drive down to the folder itself
    std::vector<FolderPlace> inside; ///< by name
};

/// The system's drives and folders, for choosing one.
class Folders {
public:
    Folders() = default;
    Folders(const Folders &) = delete;
    Folders &operator=(const Folders &) = delete;
    virtual ~Folders() = default;

    /// Where paths begin: the drives; elsewhere than on Windows the mounted places.
    [[nodiscard]] virtual std::vector<std::string> drives() = 0;
    /// Reads a folder; a drive by itself is its root. 71 no medium or a device that does not answer, 75 refused, 76 no
    /// such folder.
    [[nodiscard]] virtual FolderContents open(const std::string &path) = 0;
};

} // namespace inin

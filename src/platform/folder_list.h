#pragma once

#include "platform/controls.h"
#include "platform/folders.h"

#include <string>
#include <vector>

namespace inin {

/// A list of folders: the path from the root of the drive down to the open folder, then the folders in it. The number
/// of an item is its depth. Choosing an item does not open it; a double click or the return key does.
class FolderList : public ListBox {
public:
    FolderList(std::string name, Folders &folders);

    /// The open folder and its drive in the system's notation; empty until a folder is opened.
    [[nodiscard]] const std::string &Path() const { return m_path; }
    [[nodiscard]] const std::string &Drive() const { return m_drive; }
    /// Opens a folder. An error leaves the list unchanged.
    void setPath(const std::string &path);
    /// Opens the chosen item, if any.
    void openChosen();

private:
    void list(const FolderPlace &place, std::size_t depth);

    Folders &m_folders;
    std::string m_path;
    std::string m_drive;
    std::vector<std::string> m_paths; ///< one per item
};

} // namespace inin

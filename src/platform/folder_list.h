#pragma once

#include "platform/controls.h"
#include "platform/folders.h"

#include <string>
#include <vector>

namespace inin {

/// A list of folders: those above the open one from the root of its drive down to itself, then those in it. The number
/// of an item is its depth. Choosing an item only marks it; a double click or the return key opens it.
class FolderList : public ListBox {
public:
    FolderList(std::string name, Folders &folders);

    /// The open folder and its drive, as the system writes them; empty before the first one.
    [[nodiscard]] const std::string &Path() const { return m_path; }
    [[nodiscard]] const std::string &Drive() const { return m_drive; }
    /// Opens a folder. Its errors go to the caller and leave the list as it was.
    void setPath(const std::string &path);
    /// Opens the marked item; without one nothing happens.
    void openChosen();

private:
    void list(const FolderPlace &place, std::size_t depth);

    Folders &m_folders;
    std::string m_path;
    std::string m_drive;
    std::vector<std::string> m_paths; ///< of the items
};

} // namespace inin

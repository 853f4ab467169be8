#pragma once

#include "platform/folders.h"
#include "platform/platform.h"

#include <cstdint>
#include <string>

namespace inin {

class frmSelFolder;

/// Lets a person choose a folder. It belongs to the suite's stock of windows; no screen of this program opens it.
class clsSelectFolder {
public:
    clsSelectFolder(const Platform &platform, Folders &folders) : m_platform(platform), m_folders(folders) {}

    /// "Error No:" number CR description of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_error; }
    /// The folder to start in, and after a choice the one that was chosen.
    [[nodiscard]] const std::string &SelFolder() const { return m_folder; }
    void SelFolder(const std::string &csCurrentFolder) { m_folder = csCurrentFolder; }
    /// The window's caption; an empty one leaves the window's own.
    void SetWindowTitle(const std::string &csTitle) { m_title = csTitle; }

    /// Shows the window on SelFolder: 0 done, also when nothing was chosen, or -1 with the words in CsErrStr. The drive
    /// list stays on the current drive.
    [[nodiscard]] std::int16_t iSelFolder();
    /// The same, and the drive list stands on the folder's drive.
    [[nodiscard]] std::int16_t iSelFolder_New();

private:
    enum class Start { folder, driveAndFolder };
    [[nodiscard]] std::int16_t select(Start start);
    void startIn(frmSelFolder &window, Start start);

    Platform m_platform;
    Folders &m_folders;
    std::string m_error;
    std::string m_title;
    std::string m_folder;
};

} // namespace inin

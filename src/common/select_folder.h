#pragma once

#include "platform/folders.h"
#include "platform/platform.h"

#include <cstdint>
#include <string>

namespace inin {

class frmSelFolder;

/// Lets the operator choose a folder. For the suite's other programs; no screen of this program opens it.
class clsSelectFolder {
public:
    clsSelectFolder(const Platform &platform, Folders &folders) : m_platform(platform), m_folders(folders) {}

    /// "Error No:" number CR description of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_error; }
    /// The folder to start in; after a choice, the chosen one.
    [[nodiscard]] const std::string &SelFolder() const { return m_folder; }
    void SelFolder(const std::string &csCurrentFolder) { m_folder = csCurrentFolder; }
    /// The window's caption; an empty text keeps the default.
    void SetWindowTitle(const std::string &csTitle) { m_title = csTitle; }

    /// Shows the window on SelFolder: 0 on success, with or without a choice, or -1 with the error text in CsErrStr.
    /// The drive list stays on the current drive.
    [[nodiscard]] std::int16_t iSelFolder();
    /// The same, with the drive list set to the folder's drive.
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

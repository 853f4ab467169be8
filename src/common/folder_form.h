#pragma once

#include "platform/folders.h"
#include "platform/platform.h"
#include "screen/folder_list.h"
#include "screen/form.h"

#include <cstdint>
#include <string>

namespace inin {

/// The modal folder selection: a drive, and a folder on it.
class frmSelFolder : public Form {
public:
    frmSelFolder(const Platform &platform, Folders &folders);

    Label Label1{"Label1"};
    ListBox drlDrive{"drlDrive"};
    FolderList dilFolder;
    Button cmdOK{"cmdOK"};
    Button cmdCancel{"cmdCancel"};

    /// The folder to start in, set by the caller before the show; empty for the current one.
    std::string csStartPath;

    /// True if the window was closed with a choice.
    [[nodiscard]] bool isChosen() const { return m_isChosen; }
    [[nodiscard]] const std::string &chosenPath() const { return m_path; }
    /// Selects a drive as the operator does; error 71 for a drive that is not in the list.
    void setDrive(const std::string &drive);

    /// Opens the drive. If it cannot be read, shows an error and sets the list back to the drive of the open folder.
    void drlDrive_Change();
    void cmdOK_Click();
    void cmdCancel_Click();

protected:
    void Form_Load() override;
    void Form_KeyDown(std::int16_t &KeyCode) override;

private:
    void fillDrives();
    [[nodiscard]] std::int16_t indexOfDrive(const std::string &drive) const;
    void openFolder();

    Platform m_platform;
    Folders &m_folders;
    bool m_isChosen = false;
    std::string m_path;
};

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

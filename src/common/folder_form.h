#pragma once

#include "platform/platform.h"
#include "screen/folder_list.h"
#include "screen/form.h"

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

} // namespace inin

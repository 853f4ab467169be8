#include "common/select_folder.h"

#include "common/folder_form.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

namespace inin {

std::int16_t clsSelectFolder::iSelFolder()
{
    return select(Start::folder);
}

std::int16_t clsSelectFolder::iSelFolder_New()
{
    return select(Start::driveAndFolder);
}

std::int16_t clsSelectFolder::select(Start start)
try {
    frmSelFolder window(m_platform, m_folders);
    // Accessing a control of a window loads the window first.
    window.load();
    if (!m_title.empty()) window.Caption = m_title;
    startIn(window, start);
    m_platform.windows.show(window, Modality::modal);
    if (window.isChosen()) m_folder = window.chosenPath();
    return 0;
} catch (const RuntimeError &error) {
    m_error = ("Error No:" + std::to_string(error.number())).append(kCr).append(error.description());
    return -1;
}

/// A start folder that cannot be shown is no failure: the window then keeps its initial folder. Drive and folder are
/// set independently, so that a shared folder, whose drive is in no list, is opened all the same.
void clsSelectFolder::startIn(frmSelFolder &window, Start start)
{
    const auto ignoringErrors = [](const auto &part) {
        try {
            part();
        } catch (const RuntimeError &) {
            // No message: the window itself shows its folder.
        }
    };
    bool isThere = false;
    ignoringErrors([&] { isThere = !m_folder.empty() && m_platform.files.isFolder(m_folder); });
    if (!isThere) return;
    window.csStartPath = m_folder;
    if (start == Start::driveAndFolder) ignoringErrors([&] { window.setDrive(m_folders.open(m_folder).drive); });
    ignoringErrors([&] { window.dilFolder.setPath(m_folder); });
}

} // namespace inin

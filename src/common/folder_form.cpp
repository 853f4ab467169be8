#include "common/folder_form.h"

#include "common/error_text.h"
#include "platform/key_codes.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <initializer_list>

namespace inin {

namespace {

constexpr const char *kWarningTitle = "警告！";
constexpr std::int16_t kNoDrive = -1;

} // namespace

frmSelFolder::frmSelFolder(const Platform &platform, Folders &folders)
    : Form("frmSelFolder"), dilFolder("dilFolder", folders), m_platform(platform), m_folders(folders)
{
    Caption = "フォルダの選択";
    Label1.Caption = "ドライブとフォルダを選択してください。";
    cmdOK.Caption = "OK";
    cmdCancel.Caption = "キャンセル";
    cmdCancel.Cancel = true;
    // A drive list has a change event and no click: selecting the drive that it already shows does nothing.
    drlDrive.ListIndex.onAssigned = [this] { drlDrive_Change(); };
    dilFolder.onDblClick = [this] { openFolder(); };
    dilFolder.onKeyPress = [this](std::int16_t KeyCode) {
        if (KeyCode == kReturnKey) openFolder();
    };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    add(Label1);
    std::int16_t stop = 0;
    for (Control *control : std::initializer_list<Control *>{&drlDrive, &dilFolder, &cmdOK, &cmdCancel}) {
        control->TabIndex = stop++;
        add(*control);
    }
}

/// The lists start at the current folder, which the caller sets first.
void frmSelFolder::Form_Load()
{
    m_isChosen = false;
    dilFolder.setPath(m_platform.files.currentFolder());
    fillDrives();
}

void frmSelFolder::fillDrives()
{
    drlDrive.Clear();
    for (const std::string &drive : m_folders.drives()) drlDrive.AddItem(drive, 0);
    drlDrive.ListIndex.assignQuietly(indexOfDrive(dilFolder.Drive()));
}

std::int16_t frmSelFolder::indexOfDrive(const std::string &drive) const
{
    for (std::int16_t index = 0; index < drlDrive.ListCount(); ++index)
        if (equalsIgnoringAsciiCase(drlDrive.items()[static_cast<std::size_t>(index)].text, drive)) return index;
    return kNoDrive;
}

void frmSelFolder::setDrive(const std::string &drive)
{
    const std::int16_t index = indexOfDrive(drive);
    if (index == kNoDrive) throw RuntimeError(error_number::diskNotReady);
    drlDrive.ListIndex = index;
}

void frmSelFolder::drlDrive_Change()
try {
    if (drlDrive.ListIndex < 0) return;
    dilFolder.setPath(drlDrive.items()[static_cast<std::size_t>(drlDrive.ListIndex.get())].text);
} catch (const RuntimeError &) {
    m_platform.boxes.show("ドライブの準備が出来ていません。", Icon::critical, kWarningTitle);
    // Without the event: restoring the drive must not close the open folder.
    drlDrive.ListIndex.assignQuietly(indexOfDrive(dilFolder.Drive()));
}

/// For a folder that cannot be opened, shows the system's error text and keeps the list.
void frmSelFolder::openFolder()
try {
    dilFolder.openChosen();
} catch (const RuntimeError &error) {
    m_platform.boxes.show(error.description(), Icon::critical, kWarningTitle);
}

void frmSelFolder::cmdOK_Click()
{
    m_path = dilFolder.Path();
    // The root of a drive keeps nothing after its colon.
    if (m_path.ends_with('\\')) m_path.pop_back();
    m_isChosen = true;
    unload();
}

void frmSelFolder::cmdCancel_Click()
{
    m_isChosen = false;
    unload();
}

void frmSelFolder::Form_KeyDown(std::int16_t &KeyCode)
try {
    if (KeyCode == kF12Key) cmdCancel_Click();
} catch (const RuntimeError &error) {
    m_platform.boxes.show(headingText("フォームKeyDown()でエラー", numberLineText(error)), Icon::critical);
}

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

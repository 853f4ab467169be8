#pragma once

#include "adapters/qt/date_edit.h"
#include "adapters/qt/window_fixture.h"
#include "common/folder_form.h"
#include "search/patient_search_form.h"
#include "search/staff_search_form.h"
#include "shell/version_form.h"
#include "shell/wait_form.h"
#include "support/fake_folders.h"

#include <functional>
#include <memory>

namespace inin::qt {

/// A shown window of each form, without a running program.
struct WindowSet {
    WindowSet();
    WindowFixture world;
    frmPrintInin printForm{world.app};
    frm患者検索 patientForm{world.app};
    frm施術者検索 staffForm{world.app};
    frmWaitMsg waitForm{world.app};
    frmVer versionForm{world.app};
    FakeFolders folders;
    frmSelFolder folderForm{world.app.platform, folders};
    std::unique_ptr<FormWindow> print, patient, staff, wait, version, folder;
};

/// Calls `look` with each window of a new set.
void forEachWindow(const std::function<void(FormWindow &window)> &look);

} // namespace inin::qt

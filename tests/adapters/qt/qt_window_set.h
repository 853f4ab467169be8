#pragma once

#include "adapters/qt/date_edit.h"
#include "adapters/qt/window_fixture.h"
#include "search/patient_search_form.h"
#include "search/staff_search_form.h"
#include "shell/wait_form.h"

#include <functional>
#include <memory>

namespace inin {

/// One window of each form, shown, with nothing of the program running behind it.
struct WindowSet {
    WindowSet();
    WindowFixture world;
    frmPrintInin printForm{world.app};
    frm患者検索 patientForm{world.app};
    frm施術者検索 staffForm{world.app};
    frmWaitMsg waitForm{world.app};
    std::unique_ptr<FormWindow> print, patient, staff, wait;
};

/// Each window of a fresh set.
void forEachWindow(const std::function<void(FormWindow &window)> &look);

} // namespace inin

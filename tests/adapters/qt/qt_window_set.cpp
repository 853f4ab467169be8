#include "adapters/qt/qt_window_set.h"

#include <QtTest/QTest>

namespace inin::qt {

namespace {

std::unique_ptr<FormWindow> shown(Form &form, const ViewServices &services)
{
    auto window = std::make_unique<FormWindow>(form, services, nullptr);
    window->open();
    QTest::qWait(0);
    return window;
}

} // namespace

WindowSet::WindowSet()
{
    patientForm.chkEndKanja.Caption = "2026/08以前に、施術の終了した利用者も表示する。";
    waitForm.laMsg.Caption = "しばらくお待ちください。";
    print = shown(printForm, world.services);
    patient = shown(patientForm, world.services);
    staff = shown(staffForm, world.services);
    wait = shown(waitForm, world.services);
    world.world.files.putText("C:\\SUITE\\Sorvin.ver", "VERSION=Ver 3.14\nUUPDATE=2026/11/01\n");
    versionForm.load();
    versionForm.laVer.Caption = "委任状印刷";
    version = shown(versionForm, world.services);
    world.world.files.changeFolder("C:\\SUITE");
    folderForm.load();
    folder = shown(folderForm, world.services);
}

void forEachWindow(const std::function<void(FormWindow &window)> &look)
{
    const WindowSet set;
    for (const auto *window : {&set.print, &set.patient, &set.staff, &set.wait, &set.version, &set.folder})
        look(**window);
}

} // namespace inin::qt

#include "shell/wait_form.h"

#include "runtime/conversion.h"
#include "runtime/runtime_error.h"

#include <utility>

namespace inin {

namespace {
/// Width of the picture's area at the left of the window, in twips.
constexpr std::int32_t kPictureWidth = 600;
constexpr double kSecondsOfDay = 86400;

std::int32_t half(std::int32_t twips)
{
    return toLong(twips / 2.0);
}
} // namespace

frmWaitMsg::frmWaitMsg(App &app) : Form("frmWaitMsg"), m_app(app)
{
    Caption = "  タイトル";
    cmdOK.Caption = "Ｏ  Ｋ";
    cmdOK.onClick = [this] { unload(); };
    add(laMsg);
    add(cmdOK);
    for (ImageBox &image : imgInf) add(image);
}

void frmWaitMsg::Form_Load()
{
    for (ImageBox &image : imgInf) image.Visible = false;
    if (iImage < 0 || std::cmp_greater_equal(iImage, imgInf.size())) throw RuntimeError(error_number::subscript);
    imgInf[static_cast<std::size_t>(iImage)].Visible = true;
}

float frmWaitMsg::wait(float seconds)
{
    double last = m_app.platform.clock.timer();
    double gone = 0;
    while (gone < seconds && isLoaded()) {
        m_app.platform.windows.processWaitingEvents();
        const double now = m_app.platform.clock.timer();
        // The timer restarts at midnight. Counting from pass to pass allows a wait across any number of midnights.
        gone += now < last ? now + kSecondsOfDay - last : now - last;
        last = now;
    }
    return static_cast<float>(gone);
}

void frmWaitMsg::Form_Activate()
{
    static_cast<void>(wait(fSeconds)); // the elapsed time is not needed here
    unload();
}

void frmWaitMsg::Form_Deactivate()
{
    unload();
}

void frmWaitMsg::Form_Resize()
{
    laMsg.Left = half(Width - kPictureWidth - laMsg.Width) + kPictureWidth;
    laMsg.Top = half(cmdOK.Top - laMsg.Height);
}

} // namespace inin

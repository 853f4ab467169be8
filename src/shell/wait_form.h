#pragma once

#include "screen/form.h"
#include "shell/app.h"

#include <array>
#include <cstdint>

namespace inin {

/// A small notice that closes itself after some seconds. For the suite's other programs; nothing in this program opens
/// it.
class frmWaitMsg : public Form {
public:
    explicit frmWaitMsg(App &app);

    Label laMsg{"laMsg"};
    Button cmdOK{"cmdOK"};
    /// Four pictures in the same place: the load shows one of them.
    std::array<ImageBox, 4> imgInf{ImageBox{"imgInf(0)"}, ImageBox{"imgInf(1)"}, ImageBox{"imgInf(2)"},
                                   ImageBox{"imgInf(3)"}};

    // Set by the caller before the show.
    std::int16_t iImage = 0;
    float fSeconds = 0;

    /// Waits the given seconds, then unloads the form.
    void Form_Activate() override;
    void Form_Deactivate() override;
    /// Centres the text in the area that the picture and the button leave free.
    void Form_Resize() override;

    /// Processes events for this many seconds and returns the elapsed seconds, fewer if the form was closed meanwhile.
    float wait(float seconds);

protected:
    /// Error 9 for a picture index that does not exist.
    void Form_Load() override;

private:
    App &m_app;
};

} // namespace inin

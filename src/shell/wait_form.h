#pragma once

#include "screen/form.h"
#include "shell/app.h"

#include <array>
#include <cstdint>

namespace inin {

/// A small notice that goes away by itself after some seconds. It belongs to the suite's stock of windows; nothing in
/// this program opens it.
class frmWaitMsg : public Form {
public:
    explicit frmWaitMsg(App &app);

    Label laMsg{"laMsg"};
    Button cmdOK{"cmdOK"};
    /// Four pictures on one another: the load shows one of them.
    std::array<ImageBox, 4> imgInf{ImageBox{"imgInf(0)"}, ImageBox{"imgInf(1)"}, ImageBox{"imgInf(2)"},
                                   ImageBox{"imgInf(3)"}};

    // Set by whoever opens it, before the show.
    std::int16_t iImage = 0;
    float fSeconds = 0;

    /// Waits the given seconds, then unloads the form.
    void Form_Activate() override;
    void Form_Deactivate() override;
    /// The text stands in the middle of what the picture and the button leave.
    void Form_Resize() override;

    /// Lets events run for so many seconds and gives back the seconds that really went by, fewer when the form was
    /// closed meanwhile.
    float wait(float seconds);

protected:
    /// Error 9 for a picture that there is not.
    void Form_Load() override;

private:
    App &m_app;
};

} // namespace inin

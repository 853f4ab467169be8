#pragma once

#include "screen/form.h"
#include "shell/app.h"

namespace inin {

/// The maximized background window with the suite's wallpaper. Its load makes the application folder current and fills
/// the process-wide values.
class frmBack : public Form {
public:
    explicit frmBack(App &app);
    ImageBox ImgWall{"ImgWall"};

    /// The picture covers the whole window without keeping its proportions.
    void Form_Resize() override;

protected:
    void Form_Load() override;

private:
    App &m_app;
};

} // namespace inin

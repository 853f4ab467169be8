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

/// The program's entry: shows frmBack, then frmPrintInin modally. A run-time error that reaches it, including one in
/// the load of either form, shows "起動できません！" and ends the process.
void Main(App &app);

} // namespace inin

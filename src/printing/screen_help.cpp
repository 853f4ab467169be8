#include "printing/print_form.h"
#include "shell/online_help.h"
#include "shell/version_form.h"

namespace inin {

void frmPrintInin::mnVer_Click()
{
    frmVer window(m_app);
    window.iSystemId = kOwnSystemId;
    // Accessing a control of a window loads the window first.
    window.load();
    window.laVer.Caption = Caption;
    m_app.platform.windows.show(window, Modality::modal);
}

void frmPrintInin::mnDispHelp_Click()
{
    setMousePointer(kPointerHourglass);
    vDispHelp(m_app, kFirstHelpPage);
    setMousePointer(kPointerDefault);
}

} // namespace inin

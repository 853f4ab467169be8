#include "shell/start.h"

#include "printing/print_form.h"
#include "runtime/runtime_error.h"
#include "shell/back_form.h"

#include <optional>

namespace inin {

void Main(App &app)
{
    // Both forms outlive the handler, because their windows are still open while its box is shown.
    frmBack background(app);
    std::optional<frmPrintInin> screen;
    try {
        app.platform.windows.show(background, Modality::modeless);
        screen.emplace(app);
        app.platform.windows.show(*screen, Modality::modal);
    } catch (const RuntimeError &) {
        app.platform.boxes.show("起動できません！", Icon::critical);
        app.platform.processes.end();
    }
}

} // namespace inin

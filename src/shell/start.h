#pragma once

#include "shell/app.h"

namespace inin {

/// The program's entry: shows frmBack, then frmPrintInin modally. A run-time error that reaches it, including one in
/// the load of either form, shows "起動できません！" and ends the process.
void Main(App &app);

} // namespace inin

#pragma once

#include "adapters/qt/view_services.h"
#include "screen/form.h"

class QMenuBar;
class QWidget;

namespace inin::qt {

/// The form's menu entries as a menu bar, nullptr when the form has none. The bar is owned by `parent`. Short-cut keys
/// are only displayed: the form dispatches them itself.
[[nodiscard]] QMenuBar *makeFormMenu(Form &form, const ViewServices &services, QWidget *parent);

} // namespace inin::qt

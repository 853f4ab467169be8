#include "adapters/qt/form_window.h"
#include "adapters/qt/view_registry.h"

namespace inin {

/// The picture's size is the form's own matter.
void layOutBack(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::maximised, FormWindow::Sizing::free);
    window.widget("ImgWall").setAccessibleName(QObject::tr("背景の絵"));
}

} // namespace inin

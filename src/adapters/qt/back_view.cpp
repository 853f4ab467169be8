#include "adapters/qt/form_window.h"
#include "adapters/qt/view_registry.h"

namespace inin::qt {

/// The picture's size is the form's own matter.
void layOutBack(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::maximised, FormWindow::Sizing::free);
    // There is no text in it: when the letters are there, it need not be painted anew behind the next window.
    QFont own = window.font();
    own.setResolveMask(QFont::AllPropertiesResolved);
    window.setFont(own);
    window.widget("ImgWall").setAccessibleName(QObject::tr("背景の絵"));
}

} // namespace inin::qt

#include "adapters/qt/form_window.h"
#include "adapters/qt/view_registry.h"

namespace inin::qt {

/// The form sets the size of the picture itself.
void layOutBack(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::maximised, FormWindow::Sizing::free);
    // The window has no text. With a fixed font it is not repainted under the next window when the fonts are ready.
    QFont own = window.font();
    own.setResolveMask(QFont::AllPropertiesResolved);
    window.setFont(own);
    window.widget("ImgWall").setAccessibleName(QObject::tr("背景の画像"));
}

} // namespace inin::qt

#include "adapters/qt/form_window.h"
#include "adapters/qt/units.h"
#include "adapters/qt/view_registry.h"
#include "screen/controls.h"

#include <QLabel>
#include <QPointer>

namespace inin::qt {

namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 130;
constexpr int kButtonWidth = 90;
constexpr int kButtonHeight = 30;
constexpr int kPicture = 32;
constexpr int kMargin = 6;

/// Reports the sizes of the text and the button to the form, which moves the text.
void reportSizes(FormWindow &window)
{
    auto &label = window.widgetAs<QLabel>("laMsg");
    Control &text = *window.form().find("laMsg");
    window.form().find("cmdOK")->Top = twips(window.widget("cmdOK").y());
    const auto follow = [&text, guard = QPointer<QLabel>(&label)] {
        if (!guard) return;
        guard->adjustSize();
        guard->move(pixels(text.Left), pixels(text.Top));
        text.Width = twips(guard->width());
        text.Height = twips(guard->height());
    };
    follow();
    text.watch(follow);
}

} // namespace

/// A small notice: the picture on the left, the text in the middle of the remaining width, the button below. The form
/// moves its label by the sizes reported here.
void layOutWaitMsg(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::centred, FormWindow::Sizing::free);
    window.content().setMinimumSize(kWidth, kHeight);
    window.widget("cmdOK").setGeometry((kWidth - kButtonWidth) / 2, kHeight - kButtonHeight - kMargin, kButtonWidth,
                                       kButtonHeight);
    for (const char *picture : {"imgInf(0)", "imgInf(1)", "imgInf(2)", "imgInf(3)"})
        window.widget(picture).setGeometry(kMargin, kMargin, kPicture, kPicture);
    reportSizes(window);
}

} // namespace inin::qt

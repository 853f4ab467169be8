// An empty window of the toolkit and nothing else: the minimum of any program with windows. With --maximised it fills
// the screen; a text argument is shown as a line. Ends when the window is painted.

#include "bench/end_at_paint.h"

#include <QApplication>
#include <QLabel>
#include <QWidget>

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    inin::bench::EndAtPaint::of("empty");
    const QString wish = argc > 1 ? QString::fromUtf8(argv[1]) : QString();
    QWidget window;
    window.setObjectName("empty");
    window.resize(468, 757);
    if (wish == "--maximised") {
        window.showMaximized();
    } else {
        if (!wish.isEmpty()) new QLabel(wish, &window); // the window owns it
        window.show();
    }
    return QApplication::exec();
}

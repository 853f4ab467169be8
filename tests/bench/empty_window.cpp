// An empty window of the toolkit, or one with a line of text, and nothing else: what any program with windows takes to
// come up. Ends when the window is painted.

#include "bench/end_at_paint.h"

#include <QApplication>
#include <QLabel>
#include <QWidget>

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    inin::bench::EndAtPaint::of("empty");
    QWidget window;
    window.setObjectName("empty");
    window.resize(468, 757);
    if (argc > 1) new QLabel(QString::fromUtf8(argv[1]), &window); // the window owns it
    window.show();
    return QApplication::exec();
}

// The main function of the test programs with windows. They are shown on no screen unless QT_QPA_PLATFORM names one.
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "adapters/qt/font_reading.h"
#include "adapters/qt/window_application.h"
#include "desktop_theme/theme.h"

#include <cstdio>

namespace {

/// The offscreen platform logs for each window what it does not support.
void passOn(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (!message.contains("This plugin does not support")) std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(passOn);
    inin::qt::WindowApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    inin::theme::applyTheme(application);
    inin::qt::FontReading().finish();
    doctest::Context context(argc, argv);
    return context.run();
}

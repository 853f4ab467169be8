// PrintInin: the desktop program. It takes no arguments; its folder is the one in which the executable lies, or the one
// that the environment variable ININ_APP_DIR names.

#include "adapters/posix/posix_platform.h"
#include "adapters/qt/japanese_font.h"
#include "adapters/qt/qt_message_boxes.h"
#include "adapters/qt/qt_windows.h"
#include "adapters/qt/theme.h"
#include "adapters/sqlite/sqlite_database.h"
#include "app/data_source.h"
#include "runtime/runtime_error.h"
#include "shell/error_box.h"
#include "shell/start.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace inin {

namespace {

constexpr const char *kFolderVariable = "ININ_APP_DIR";
constexpr int kBroken = 1;

/// The end statement: nothing of the program runs behind it, no destructor either.
[[noreturn]] void endAtOnce()
{
    std::_Exit(0);
}

std::string applicationFolder()
{
    if (const char *named = std::getenv(kFolderVariable); named != nullptr && *named != '\0')
        return std::filesystem::absolute(named).lexically_normal().string();
    return QCoreApplication::applicationDirPath().toStdString();
}

/// The toolkit gives up without a display by an abort, which leaves a dump and no word that a person understands.
void sayWhyAndEnd(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    if (type != QtFatalMsg) return;
    std::fputs("PrintInin: 画面に接続できません。（DISPLAY を確かめてください。）\n", stderr);
    std::_Exit(kBroken);
}

void runProgram()
{
    EventEdge edge;
    const std::string folder = applicationFolder();
    const auto profile = makePosixProfile();
    const auto files = makePosixFiles(folder);
    const auto clock = makePosixClock();
    const auto locale = makePosixLocale();
    const auto processes = makePosixProcesses(endAtOnce);
    const auto automation = makeNoAutomation();
    const auto database = makeSqliteDatabase(dataSourceIn(folder));
    QtMessageBoxes boxes(edge);
    QtWindows windows(*files, {edge, [&clock] { return clock->today(); }, posixPath});
    App app(Platform{boxes, windows, *database, *profile, *files, *processes, *clock, *locale, *automation});
    Main(app);
}

/// Runs with the windows gone: the forms behind them are.
int report(const RuntimeError &error)
{
    const std::string text = numberedText(error);
    std::fprintf(stderr, "PrintInin: %s\n", text.c_str());
    QMessageBox::critical(nullptr, kApplicationTitle, QString::fromStdString(text));
    return kBroken;
}

int run()
try {
    if (!hasJapaneseFont()) {
        std::fprintf(stderr, "PrintInin: %s\n", missingFontAdvice());
        QMessageBox::critical(nullptr, "PrintInin", QString::fromUtf8(missingFontAdvice()));
        return kBroken;
    }
    runProgram();
    return 0;
} catch (const UnhandledError &unhandled) {
    return report(unhandled.error());
} catch (const RuntimeError &error) {
    return report(error);
}

} // namespace

} // namespace inin

int main(int, char **argv)
try {
    qInstallMessageHandler(inin::sayWhyAndEnd);
    int noArguments = 1;
    QApplication application(noArguments, argv);
    QApplication::setQuitOnLastWindowClosed(false); // the program's own unload decides
    QApplication::setApplicationDisplayName({});
    inin::applyTheme(application);
    return inin::run();
} catch (const std::exception &fault) {
    std::fprintf(stderr, "PrintInin: %s\n", fault.what());
    return inin::kBroken;
}

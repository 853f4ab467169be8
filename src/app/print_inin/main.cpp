// PrintInin: the desktop program. It takes no arguments; its folder is the one in which the executable lies, or the one
// that the environment variable ININ_APP_DIR names. ININ_TRANSCRIPT names a file that is to be told what happens, for
// support and tests.

#include "adapters/qt/japanese_font.h"
#include "adapters/qt/theme.h"
#include "adapters/script/recording_database.h"
#include "adapters/script/telling_ports.h"
#include "app/print_inin/desktop.h"
#include "runtime/runtime_error.h"
#include "shell/error_box.h"
#include "shell/start.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace inin {

namespace {

constexpr const char *kFolderVariable = "ININ_APP_DIR";
constexpr const char *kTranscriptVariable = "ININ_TRANSCRIPT";
constexpr int kBroken = 1;

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

void runOn(const Platform &platform)
{
    App app(platform);
    Main(app);
}

/// Runs with everything told, in the words of a played script.
void runTold(const Platform &inner, const char *file)
{
    std::ofstream out(file);
    Transcript transcript(out);
    TellingBoxes boxes(transcript, inner.boxes);
    TellingWindows windows(transcript, inner.windows);
    RecordingDatabase database(inner.database, transcript);
    TellingProcesses processes(transcript, inner.processes);
    runOn(
        {boxes, windows, database, inner.profile, inner.files, processes, inner.clock, inner.locale, inner.automation});
}

void runProgram()
{
    Desktop desktop(applicationFolder());
    const char *transcript = std::getenv(kTranscriptVariable);
    if (transcript == nullptr || *transcript == '\0') return runOn(desktop.platform());
    runTold(desktop.platform(), transcript);
}

/// Runs with the windows gone: the forms behind them are.
int report(const char *title, const std::string &text)
{
    std::fprintf(stderr, "PrintInin: %s\n", text.c_str());
    QMessageBox::critical(nullptr, title, QString::fromStdString(text));
    return kBroken;
}

int run()
try {
    runProgram();
    return 0;
} catch (const UnhandledError &unhandled) {
    return report(kApplicationTitle, numberedText(unhandled.error()));
} catch (const RuntimeError &error) {
    return report(kApplicationTitle, numberedText(error));
} catch (const NoJapaneseFont &missing) {
    return report("PrintInin", missing.what()); // a title that can be read without the letters
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

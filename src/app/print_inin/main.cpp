// PrintInin: the desktop program. It takes no arguments; its folder is the one in which the executable lies, or the one
// that the environment variable ININ_APP_DIR names. ININ_TRANSCRIPT names a file that is to be told what happens, for
// support and tests.

#include "adapters/common/program_edges.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/system_words.h"
#include "adapters/qt/theme.h"
#include "adapters/qt/toolkit_words.h"
#include "adapters/script/recording_database.h"
#include "adapters/script/telling_ports.h"
#include "app/print_inin/desktop.h"
#include "runtime/file_path.h"
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

/// The toolkit reads the environment and its own place in every system's whole character set.
std::string applicationFolder()
{
    const QString named = qEnvironmentVariable(kFolderVariable);
    const QString folder = named.isEmpty() ? QCoreApplication::applicationDirPath() : named;
    std::filesystem::path path = std::filesystem::absolute(pathOf(fromQt(folder))).lexically_normal();
    return textOf(path.make_preferred());
}

/// The toolkit gives up without a display by an abort, which leaves a dump and no word that a person understands.
void sayWhyAndEnd(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    if (type != QtFatalMsg) return;
    std::fputs(kNoScreen, stderr);
    std::_Exit(kBroken);
}

void runOn(const Platform &platform)
{
    App app(platform);
    Main(app);
}

/// Runs with everything told, in the words of a played script.
void runTold(const Platform &inner, const std::string &file)
{
    std::ofstream out(pathOf(file), std::ios::binary); // the same bytes on every system
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
    const QString transcript = qEnvironmentVariable(kTranscriptVariable);
    if (transcript.isEmpty()) return runOn(desktop.platform());
    runTold(desktop.platform(), fromQt(transcript));
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
} catch (const std::exception &fault) {
    return report("PrintInin", fault.what()); // a title that can be read without Japanese letters
}

} // namespace

} // namespace inin

int main(int, char **argv)
try {
    inin::prepareStandardStreams();
    qInstallMessageHandler(inin::sayWhyAndEnd);
    int noArguments = 1;
    QApplication application(noArguments, argv);
    QApplication::setQuitOnLastWindowClosed(false); // the program's own unload decides
    QApplication::setApplicationDisplayName({});
    inin::applyTheme(application);
    inin::useJapaneseWords(application);
    return inin::run();
} catch (const std::exception &fault) {
    std::fprintf(stderr, "PrintInin: %s\n", fault.what());
    return inin::kBroken;
}

// PrintInin: the desktop program. It takes no arguments but --version; its folder is that of the executable, or the one in
// the environment variable ININ_APP_DIR. ININ_TRANSCRIPT names a file to which all events are written, for support and
// tests.

#include "adapters/native/native_platform.h"
#include "adapters/qt/font_reading.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/system_words.h"
#include "adapters/qt/window_application.h"
#include "adapters/script/recording_ports.h"
#include "app/print_inin/desktop.h"
#include "desktop_theme/theme.h"
#include "desktop_theme/toolkit_folder.h"
#include "desktop_theme/toolkit_words.h"
#include "runtime/runtime_error.h"
#include "shell/error_box.h"
#include "shell/start.h"
#include "system/file_path.h"
#include "system/program_edges.h"
#include "system/program_version.h"
#include "system/whole_file.h"

#include <QMessageBox>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace inin {

namespace {

constexpr const char *kFolderVariable = "ININ_APP_DIR";
constexpr const char *kTranscriptVariable = "ININ_TRANSCRIPT";
constexpr int kBroken = 1;

std::string applicationFolder()
{
    const std::string named = environmentText(kFolderVariable);
    return fullPath(named.empty() ? textOf(programFile().parent_path()) : named);
}

/// Without a display the toolkit aborts, with a core dump and no message that a user understands.
void sayWhyAndEnd(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    if (type != QtFatalMsg) return;
    std::fputs(qt::kNoScreen, stderr);
    std::_Exit(kBroken);
}

void runOn(const Platform &platform)
{
    App app(platform);
    Main(app);
}

/// Runs and writes every event to a file, in the format of a played script.
void runRecorded(const Platform &inner, const std::string &file)
{
    createForOwner(file);                              // statements contain names, the help address a password
    std::ofstream out(pathOf(file), std::ios::binary); // the same bytes on every system
    script::Transcript transcript(out);
    script::RecordingBoxes boxes(transcript, inner.boxes);
    script::RecordingWindows windows(transcript, inner.windows);
    script::RecordingDatabase database(inner.database, transcript);
    script::RecordingProcesses processes(transcript, inner.processes);
    runOn(
        {boxes, windows, database, inner.profile, inner.files, processes, inner.clock, inner.locale, inner.automation});
}

void runProgram(qt::EventEdge &edge, qt::FontReading &fonts)
{
    Desktop desktop(applicationFolder(), edge, fonts);
    const QString transcript = qEnvironmentVariable(kTranscriptVariable);
    if (transcript.isEmpty()) return runOn(desktop.platform());
    runRecorded(desktop.platform(), qt::fromQt(transcript));
}

/// Reports a failure after the forms and their windows are gone.
int report(const char *title, const std::string &text)
{
    std::fprintf(stderr, "PrintInin: %s\n", text.c_str());
    QMessageBox::critical(nullptr, title, QString::fromStdString(text));
    return kBroken;
}

int run(qt::EventEdge &edge, qt::FontReading &fonts)
try {
    runProgram(edge, fonts);
    return 0;
} catch (const UnhandledError &unhandled) {
    return report(kApplicationTitle, numberedText(unhandled.error()));
} catch (const RuntimeError &error) {
    return report(kApplicationTitle, numberedText(error));
} catch (const std::bad_alloc &) {
    return report(kApplicationTitle, numberedText(RuntimeError(error_number::outOfMemory)));
} catch (const std::exception &fault) {
    return report("PrintInin", fault.what()); // a title that is readable without Japanese glyphs
}

} // namespace

} // namespace inin

int main(int argc, char **argv)
try {
    inin::prepareStandardStreams();
    if (inin::programArguments(argc, argv) == std::vector<std::string>{"--version"}) {
        inin::printLine(stdout, "PrintInin " + std::string(inin::programVersion()));
        return 0;
    }
    qInstallMessageHandler(inin::sayWhyAndEnd);
    inin::theme::useToolkitFolder();
    int noArguments = 1;
    inin::qt::EventEdge edge;
    inin::qt::WindowApplication application(noArguments, argv);
    inin::qt::FontReading fonts;
    application.onFault = [&edge](std::exception_ptr fault) { edge.keep(std::move(fault)); };
    QApplication::setQuitOnLastWindowClosed(false); // the program's unload decides when to quit
    QApplication::setApplicationDisplayName({});
    inin::theme::applyTheme(application);
    inin::theme::useJapaneseWords(application);
    return inin::run(edge, fonts);
} catch (const std::exception &fault) {
    std::fprintf(stderr, "PrintInin: %s\n", fault.what());
    return inin::kBroken;
}

// Plays every scenario and writes the results into a folder: NAME.txt has the events and the exit code, NAME/ the files
// of the temporary folder. The site's folder is always $APP, so that the results of two systems can be compared.

#include "scenarios/script_driver.h"
#include "support/file_bytes.h"

#include <iostream>

namespace {

namespace fs = std::filesystem;
using namespace inin;

void writeTranscript(const Play &play, const fs::path &target)
{
    const TemporarySite site(play);
    ScriptDriver driver;
    const PlayRecord record = driver.run(play, site);
    std::string events;
    for (const auto &step : record.events)
        for (const std::string &event : step) events += event + "\n";
    const fs::path name = pathOf(play.file).stem();
    writeBytes(target / (textOf(name) + ".txt"),
               withoutFolder(events + "exit " + std::to_string(record.exitCode) + "\n" + record.errors, site));
    for (const char *kept : {"TMP", "DATA"}) {
        if (!fs::is_directory(site.at(kept))) continue;
        for (const auto &entry : fs::directory_iterator(site.at(kept)))
            if (entry.is_regular_file())
                writeBytes(target / name / kept / entry.path().filename(), withoutFolder(bytesOf(entry.path()), site));
    }
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc != 2) return 2;
    for (const std::string &file : playFiles()) writeTranscript(readPlay(file), argv[1]);
    return 0;
} catch (const std::exception &fault) {
    std::cerr << fault.what() << '\n';
    return 1;
}

// Plays every scenario and writes what happened into a folder: NAME.txt holds the events and the exit code, NAME/ the files
// of the temporary folder. The site's folder is $APP in all of it, so that two systems can be held against each other.

#include "scenarios/script_driver.h"
#include "support/file_bytes.h"

#include <algorithm>
#include <iostream>

namespace {

namespace fs = std::filesystem;
using namespace inin;

std::string replaceAll(std::string text, const std::string &from, const std::string &to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// The folder as a text has it, as a JSON text has it, and each with backslashes.
std::string withoutFolder(std::string text, const std::string &folder)
{
    std::string suite = folder;
    std::ranges::replace(suite, '/', '\\');
    for (const std::string &spelled : {replaceAll(suite, "\\", "\\\\"), suite, folder})
        text = replaceAll(text, spelled, "$APP");
    return text;
}

void play(const fs::path &file, const fs::path &target)
{
    const Play play = readPlay(textOf(file));
    const TemporarySite site(play);
    ScriptDriver driver;
    const PlayRecord record = driver.run(play, site);
    const std::string folder = textOf(site.folder());
    std::string events;
    for (const auto &step : record.events)
        for (const std::string &event : step) events += event + "\n";
    const fs::path name = file.stem();
    writeBytes(target / (textOf(name) + ".txt"),
               withoutFolder(events + "exit " + std::to_string(record.exitCode) + "\n" + record.errors, folder));
    for (const char *kept : {"TMP", "DATA"}) {
        if (!fs::is_directory(site.at(kept))) continue;
        for (const auto &entry : fs::directory_iterator(site.at(kept)))
            if (entry.is_regular_file())
                writeBytes(target / name / kept / entry.path().filename(),
                           withoutFolder(bytesOf(entry.path()), folder));
    }
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc != 2) return 2;
    for (const auto &entry : fs::directory_iterator(ININ_SCENARIOS))
        if (entry.path().extension() == ".play") play(entry.path(), argv[1]);
    return 0;
} catch (const std::exception &fault) {
    std::cerr << fault.what() << '\n';
    return 1;
}

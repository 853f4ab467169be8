#include "app/inin_site/options.h"
#include "demo_site/server_maker.h"
#include "demo_site/site_maker.h"
#include "site_check/site_check.h"
#include "system/file_path.h"
#include "system/program_edges.h"

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace inin::site {

namespace {

constexpr int kDone = 0;
constexpr int kFound = 1; // or the site could not be made
constexpr int kBadCommand = 2;

void makeServer(const MakeCommand &command)
{
    makeServerDatabase(command.into, command.order, command.overwrite);
    printLine(stdout, fmt::format("見本データをデータベースに書き込みました。（利用者{}人、対象月{}、種{}）",
                                  command.order.patients, yearMonthText(command.order.month), command.order.seed));
}

/// The form viewer that was built with this program; empty if there is none.
std::filesystem::path formViewerBeside()
{
    std::error_code error;
    const std::filesystem::path self = programFile();
    const auto viewer = self.parent_path() / formViewerName();
    return !self.empty() && std::filesystem::exists(viewer, error) ? viewer : std::filesystem::path();
}

struct Run {
    int operator()(const MakeCommand &command) const
    {
        // Made first, so that a string that is too long for the suite is reported before anything is written.
        const std::string connection = command.into.empty() ? std::string() : connectionFile(command.into);
        if (!command.into.empty()) makeServer(command);
        if (command.folder.empty()) return kDone;
        makeSite(command.folder, command.order, command.overwrite, formViewerBeside());
        if (!connection.empty()) writeFile(command.folder / "adodb.ini", connection);
        printLine(stdout,
                  fmt::format("見本サイト「{}」を作りました。（利用者{}人、対象月{}、種{}）", textOf(command.folder),
                              command.order.patients, yearMonthText(command.order.month), command.order.seed));
        return kDone;
    }
    int operator()(const CheckCommand &command) const
    {
        const Findings findings = checkSite(command.folder);
        for (const std::string &finding : findings) printLine(stdout, finding);
        if (findings.empty()) printLine(stdout, "問題は見つかりませんでした。");
        return findings.empty() ? kDone : kFound;
    }
    int operator()(const HelpCommand &command) const
    {
        printLine(stdout, command.text);
        return kDone;
    }
    int operator()(const BadCommand &command) const
    {
        printLine(stderr, command.sentence);
        return kBadCommand;
    }
};

int run(int argc, char **argv)
{
    const std::vector<std::string> words = programArguments(argc, argv);
    std::vector<const char *> line = {"inin-site"};
    for (const std::string &word : words) line.push_back(word.c_str());
    return std::visit(Run{}, readCommandLine(static_cast<int>(line.size()), line.data()));
}

} // namespace

} // namespace inin::site

int main(int argc, char **argv)
{
    inin::prepareStandardStreams();
    return inin::runProgram(
        inin::site::kFound, [&] { return inin::site::run(argc, argv); },
        [](const std::string &message) { inin::printLine(stderr, message); });
}

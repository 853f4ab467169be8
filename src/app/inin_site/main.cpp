#include "app/inin_site/options.h"
#include "app/inin_site/site_check.h"
#include "runtime/runtime_error.h"

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>

namespace inin::site {

namespace {

constexpr int kDone = 0;
constexpr int kFound = 1; // also: could not be made
constexpr int kBadCommand = 2;

void printLine(std::FILE *where, const std::string &line)
{
    fmt::print(where, "{}\n", line);
}

/// The form viewer that was built with this program; empty when there is none.
std::filesystem::path formViewerBeside()
{
    std::error_code error;
    const auto viewer = std::filesystem::read_symlink("/proc/self/exe", error).replace_filename("formviewer");
    return !error && std::filesystem::exists(viewer, error) ? viewer : std::filesystem::path();
}

struct Run {
    int operator()(const MakeCommand &command) const
    {
        makeSite(command.folder, command.order, command.overwrite, formViewerBeside());
        printLine(stdout,
                  fmt::format("見本サイト「{}」を作りました。（利用者{}人、対象月{}、種{}）", command.folder.string(),
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

} // namespace

} // namespace inin::site

int main(int argc, char **argv)
try {
    return std::visit(inin::site::Run{}, inin::site::readCommandLine(argc, argv));
} catch (const inin::RuntimeError &error) {
    fmt::print(stderr, "{}\n", error.description());
    return 1;
}

#include "system/program_edges.h"
#include "viewer/app/check_letters.h"
#include "viewer/app/ledger_report.h"
#include "viewer/app/options.h"
#include "viewer/app/toolkit.h"
#include "viewer/app/write_letters.h"
#include "viewer/io/system_edges.h"

#include <cstdio>

namespace inin::viewer {

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1; // or the check has findings

struct RunCommand {
    std::string programName;

    int operator()(const ViewCommand &command) const
    {
        if (command.needsWindow()) return showLetters(command, programName);
        const bool isFlagged = command.check && printCheckReport(command) > 0;
        if (!command.pdf.empty() || !command.pngFolder.empty()) writeLetters(command);
        return isFlagged ? kFailed : kDone;
    }
    int operator()(const LedgerCommand &command) const { return printLedgerReport(command); }
    int operator()(const ReturnedCommand &command) const { return markReturned(command); }
    int operator()(const MergeCommand &command) const
    {
        writeCombinedForm(command);
        return kDone;
    }
    int operator()(const ShowHelp &help) const
    {
        printLine(stdout, help.text);
        return kDone;
    }
    int operator()(const BadCommandLine &bad) const
    {
        showFailure(bad.sentence);
        return kBadCommand;
    }
};

} // namespace

} // namespace inin::viewer

int main(int argc, char **argv)
{
    using namespace inin::viewer;
    prepareStreams();
    prepareToolkit();
    const auto run = [&] {
        const std::vector<std::string> words = inin::commandWords(argc, argv);
        return std::visit(RunCommand{words.empty() ? std::string() : words.front()}, readViewerCommand(words));
    };
    return inin::runProgram(kFailed, run, [](const std::string &message) { showFailure("formviewer: " + message); });
}

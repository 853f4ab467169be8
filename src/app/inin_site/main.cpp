#include "app/inin_site/options.h"
#include "demo_site/server_maker.h"
#include "demo_site/site_maker.h"
#include "due_letters/due_letters_text.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "site_check/due_letters_of_site.h"
#include "site_check/site_check.h"
#include "site_check/support_bundle.h"
#include "site_setup/form_tools.h"
#include "system/file_path.h"
#include "system/program_edges.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace inin::site {

namespace {

constexpr int kDone = 0;
constexpr int kFound = 1; // or the site could not be made
constexpr int kUnchecked = 2;
constexpr int kBadCommand = 2;

/// The first line of a file, without the mark of UTF-8.
std::string firstLine(const std::filesystem::path &file)
{
    const auto bytes = readSiteFile(file);
    std::string line = bytes.value_or("");
    if (line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
    line.erase(std::min(line.find_first_of("\r\n"), line.size()));
    line = trim(line);
    if (!line.empty()) return line;
    throw RuntimeError(error_number::fileNotFound,
                       fmt::format("ファイル「{}」の一行目に接続文字列がありません。", textOf(file)));
}

void makeServer(const MakeCommand &command, const std::string &into)
{
    makeServerDatabase(into, command.order, command.overwrite);
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

void writeBundle(const CheckCommand &command, const Findings &findings)
{
    const std::string zip = supportBundle(command.folder, findings);
    writeWholeFile(command.bundle, zip, NewFile::ownerOnly);
}

void printFindings(const Findings &findings)
{
    for (const Finding &finding : findings) printLine(stdout, lineOf(finding));
    if (countOf(findings, Severity::notice) == findings.size()) printLine(stdout, "問題は見つかりませんでした。");
}

int printReports(const std::vector<FileReport> &reports)
{
    for (const FileReport &report : reports) printLine(stdout, sentenceOf(report));
    return kDone;
}

/// A site that cannot be read differs from one with faults.
template <class Body> int orUnchecked(const Body &body)
try {
    return body();
} catch (const RuntimeError &error) {
    printLine(stderr, error.description());
    return kUnchecked;
}

struct Run {
    int operator()(const MakeCommand &command) const
    {
        const std::string into = command.connectionFile.empty() ? command.into : firstLine(command.connectionFile);
        // Made first, so that a string that is too long for the suite is reported before anything is written.
        const std::string connection = into.empty() ? std::string() : connectionFile(into);
        if (!into.empty()) makeServer(command, into);
        if (command.folder.empty()) return kDone;
        makeSite(command.folder, command.order, command.overwrite, formViewerBeside());
        if (!connection.empty()) writeConnectionFile(command.folder, connection);
        printLine(stdout,
                  fmt::format("見本サイト「{}」を作りました。（利用者{}人、対象月{}、種{}）", textOf(command.folder),
                              command.order.patients, yearMonthText(command.order.month), command.order.seed));
        return kDone;
    }
    int operator()(const CheckCommand &command) const
    {
        return orUnchecked([&] {
            const Findings findings = checkSite(command.folder);
            if (!command.bundle.empty()) writeBundle(command, findings);
            if (command.form == OutputForm::json)
                printLine(stdout, jsonOf(findings, Details::everything));
            else
                printFindings(findings);
            if (countOf(findings, Severity::unchecked) > 0) return kUnchecked;
            return countOf(findings, Severity::fault) > 0 ? kFound : kDone;
        });
    }
    int operator()(const WhyCommand &command) const
    {
        return orUnchecked([&] {
            const std::vector<due::Answer> answers = dueLettersOfSite(command.folder, command.conditions);
            if (command.form == OutputForm::json)
                printLine(stdout, due::jsonOf(answers));
            else
                for (const std::string &line : due::linesOf(answers, command.conditions)) printLine(stdout, line);
            return kDone;
        });
    }
    int operator()(const FormsCommand &command) const
    {
        return printReports(installForms(command.folder, command.existing));
    }
    int operator()(const ToolsCommand &command) const
    {
        return printReports(installTools(command.folder, formViewerBeside()));
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
    return std::visit(Run{}, readCommandLine(static_cast<int>(line.size()), line.data(),
                                             environmentText(kConnectionVariable), helpLanguage()));
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

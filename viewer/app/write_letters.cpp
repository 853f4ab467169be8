#include "viewer/app/write_letters.h"

#include "runtime/runtime_error.h"
#include "system/program_edges.h"
#include "viewer/app/toolkit.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/letter_list.h"
#include "viewer/document/letter_press.h"
#include "viewer/document/mark_text.h"
#include "viewer/io/file_io.h"
#include "viewer/pdf/letters_pdf.h"

#include <fmt/format.h>

#include <cstdio>

namespace inin::viewer {

namespace {

void tell(const std::string &sentence)
{
    printLine(stderr, sentence);
}

void tellMarks(LetterPress &press, std::size_t letter, const std::vector<FieldMark> &marks)
{
    for (const FieldMark &mark : marks)
        tell(fmt::format("{}番 {}：{}", letter + 1, columnNames(press.layoutOf(letter), mark), markText(mark)));
}

void tellFaults(const LetterSet &set, const std::vector<std::size_t> &letters)
{
    for (const std::size_t letter : letters) {
        const LetterSet::Place place = set.placeOf(letter);
        const RowFault fault = set.reports[place.report].letters.fault(place.row);
        if (fault != RowFault::none) tell(fmt::format("{}番：{}", letter + 1, faultText(fault)));
    }
}

void writeFile(const std::string &path, const std::string &bytes)
{
    FinishedFile file(path);
    file.write(bytes);
    file.finish();
}

} // namespace

void writeLetters(const ViewCommand &command)
{
    const LetterSet set = openScript(command.script);
    for (const std::string &notice : set.notices) tell(notice);
    Fonts fonts;
    LetterPress press(set, fonts);
    const std::vector<std::size_t> letters = readLetterList(command.letters, set.size());
    for (const std::string &notice : fonts.notices()) tell(notice);
    for (const std::string &notice : press.formNotices()) tell(notice);
    tellFaults(set, letters);
    press.onMarks = [&](std::size_t letter, const auto &marks) { tellMarks(press, letter, marks); };
    if (!command.pdf.empty()) {
        writeLettersPdf(command.pdf, press, letters);
        press.onMarks = nullptr; // once is enough
    }
    if (!command.pngFolder.empty()) writePngs(command, press, letters);
}

void writeCombinedForm(const MergeCommand &command)
{
    CommandScript script = readCommandScript(readWholeFile(command.script));
    for (const std::string &notice : script.notices) tell(notice);
    std::erase_if(script.reports, [](const ReportOrder &report) { return report.form.empty(); });
    if (script.reports.empty())
        throw RuntimeError(error_number::invalidCall,
                           fmt::format("「{}」：結合する帳票（setreport）がありません。", command.script));
    // The document is read from another folder, maybe: its paths are whole.
    for (ReportOrder &report : script.reports) {
        report.form = systemPathOf(report.form);
        for (DataSource &source : report.data) source.path = systemPathOf(source.path);
    }
    // The suite names this output, in any case; a person names the others.
    writeFile(systemPathOf(command.output), combinedFormText(script.reports));
}

} // namespace inin::viewer

#include "viewer/app/write_letters.h"

#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/program_edges.h"
#include "system/whole_file.h"
#include "viewer/app/recorded_files.h"
#include "viewer/app/toolkit.h"
#include "viewer/document/combined_form.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/document/mark_text.h"
#include "viewer/pdf/letters_pdf.h"

#include <fmt/format.h>

#include <cstdio>

namespace inin::viewer {

namespace {

void printNotice(const std::string &sentence)
{
    printLine(stderr, sentence);
}

void printMarks(LetterRenderer &renderer, std::size_t letter, const std::vector<FieldMark> &marks)
{
    for (const FieldMark &mark : marks)
        printNotice(
            fmt::format("{}番 {}：{}", letter + 1, columnNames(renderer.layoutOf(letter), mark), markText(mark)));
}

void printFaults(const LetterSet &set, const std::vector<std::size_t> &letters)
{
    for (const std::size_t letter : letters) {
        const LetterSet::Place place = set.placeOf(letter);
        const RowFault fault = set.reports[place.report].letters.fault(place.row);
        if (fault != RowFault::none) printNotice(fmt::format("{}番：{}", letter + 1, faultText(fault)));
    }
}

} // namespace

LetterSet openedLetters(const ViewCommand &command)
{
    return command.form.empty() ? openScript(command.script) : openForm(command.form);
}

void writeLetters(const ViewCommand &command)
{
    const LetterSet set = openedLetters(command);
    for (const std::string &notice : set.notices) printNotice(notice);
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const std::vector<std::size_t> letters = readLetterList(command.letters, set.size());
    for (const std::string &notice : fonts.notices()) printNotice(notice);
    for (const std::string &notice : renderer.formNotices()) printNotice(notice);
    printFaults(set, letters);
    RecordedFiles files(renderer);
    files.addCodes();
    renderer.onMarks = [&](std::size_t letter, const auto &marks) { printMarks(renderer, letter, marks); };
    if (!command.pdf.empty()) {
        const PdfPurpose purpose = command.archive    ? PdfPurpose::archive
                                   : command.untagged ? PdfPurpose::printing
                                                      : PdfPurpose::reading;
        ArrangedLetters arranged = arrangeLetters(set, letters, command.arrangement);
        renderer.setCovers(std::move(arranged.covers));
        const std::vector<std::size_t> sheets = arranged.sheets();
        writeLettersPdf(command.pdf, renderer, sheets, {}, {purpose});
        files.add(OutputKind::pdf, lettersAmong(set, sheets));
        renderer.onMarks = nullptr; // do not print the marks again for the pictures
    }
    if (!command.pngFolder.empty()) {
        writePngs(command, renderer, letters);
        files.add(OutputKind::pictures, letters);
    }
    files.printNotice();
}

void writeCombinedForm(const MergeCommand &command)
{
    CommandScript script = readCommandScript(readWholeFile(command.script));
    for (const std::string &notice : script.notices) printNotice(notice);
    std::erase_if(script.reports, [](const ReportOrder &report) { return report.form.empty(); });
    if (script.reports.empty())
        throw RuntimeError(error_number::invalidCall,
                           fmt::format("「{}」：結合する帳票（setreport）がありません。", command.script));
    // Absolute paths, because the document may be read from another folder.
    for (ReportOrder &report : script.reports) {
        report.form = absoluteSystemPath(report.form);
        for (DataSource &source : report.data) source.path = absoluteSystemPath(source.path);
    }
    // The suite passes this path in any case, so it is resolved; users type the paths of the other outputs.
    writeWholeFile(pathOf(absoluteSystemPath(command.output)), combinedFormText(script.reports), NewFile::ownerOnly);
}

} // namespace inin::viewer

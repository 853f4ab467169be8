#include "faults/viewer_outputs.h"

#include "suite_text/code_page_932.h"
#include "viewer/app/write_letters.h"

#include <sqlite3.h>

namespace inin::viewer::test {

std::vector<FileWriter> writersIn(const TempFolder &folder)
{
    ViewCommand toPdf;
    toPdf.script = writePrintJob(folder, kForm, std::vector<Row>(3, ordinaryRow()));
    toPdf.pdf = folder / "out.pdf";
    MergeCommand merge;
    merge.script = folder.put("merge.dat", encodeCp932("setreport,\"" + folder.path() + "/" + kForm + "\"\r\n"));
    merge.output = folder / "tmp.wfd";
    return {{"PDF", toPdf.pdf, [toPdf] { writeLetters(toPdf); }, "%%EOF\n"},
            {"combined form", merge.output, [merge] { writeCombinedForm(merge); }, "\n"}};
}

void recordRunAndReturn(const LedgerWorld &world)
{
    static const TestRun added = runOf(5);
    Ledger ledger = world.open();
    const std::optional<RunId> run = ledger.recordRun(added.mark, added.texts, kPrintDay);
    if (!run) return;
    (void)ledger.recordOutput(*run, printJob(lettersFrom(0, 5)));
    (void)ledger.setReturned(printedLetter(*run, 0), true, kPrintDay);
}

std::string stateOfFile(const LedgerWorld &world)
{
    Ledger ledger = world.open();
    if (ledger.fault() != LedgerFault::none) return ledger.notice();
    for (const RunSummary &run : ledger.runs())
        if (run.letters != 5 || ledger.texts(run.id).size() != 5 || ledger.states(run.id).size() != 5)
            return "an incomplete run";
    sqlite3 *database = nullptr;
    std::string state;
    const auto keep = [](void *text, int, char **values, char **) {
        *static_cast<std::string *>(text) = values[0];
        return 0;
    };
    if (sqlite3_open(world.path.c_str(), &database) != SQLITE_OK ||
        sqlite3_exec(database, "PRAGMA integrity_check", keep, &state, nullptr) != SQLITE_OK)
        state = sqlite3_errmsg(database);
    sqlite3_close(database);
    return state;
}

} // namespace inin::viewer::test

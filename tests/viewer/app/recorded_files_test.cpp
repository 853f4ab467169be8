// The ledger of letters that are saved by commands.
#include "viewer/ledger/ledger_database.h"
#include "viewer/ledger/ledger_rows.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Three letters in an office with a ledger and settings of its own.
struct Office : LedgerWorld {
    std::string script;

    Office()
    {
        ::setenv("ININ_LEDGER", path.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
        std::vector<Row> rows(3, ordinaryRow());
        for (std::size_t i = 0; i < rows.size(); ++i) rows[i]["利用者氏名"] = "甲" + std::to_string(i + 1);
        script = writePrintJob(folder, kForm, rows);
    }
    ~Office()
    {
        ::setenv("ININ_LEDGER", "off", 1);
        ::unsetenv("XDG_CONFIG_HOME");
    }
    Office(const Office &) = delete;
    Office &operator=(const Office &) = delete;

    void printCodes() const
    {
        std::filesystem::create_directory(folder / "formviewer");
        writeBytes(folder / "formviewer/formviewer.ini", "[print]\ncodes=true\n");
    }
    [[nodiscard]] Outcome save(const std::string &options) const { return runViewer(folder, options + " " + script); }
    [[nodiscard]] std::vector<StoredOutput> outputs() const
    {
        LedgerDatabase database(path);
        const std::vector<StoredRun> runs = readRuns(database);
        REQUIRE(runs.size() == 1);
        REQUIRE(runs[0].summary.letters == 3);
        return readOutputs(database, runs[0].summary.id, 3);
    }
};

} // namespace

TEST_CASE("a PDF and pictures that a command saves are recorded with their letters, and these are not on paper")
{
    const Office office;
    const Outcome outcome = office.save("--pdf o.pdf --png pictures --letters 3,1");
    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    const std::vector<StoredOutput> outputs = office.outputs();
    REQUIRE(outputs.size() == 2);
    CHECK(outputs[0].kind == OutputKind::pdf);
    CHECK(outputs[0].output.letters == std::vector<std::size_t>{2, 0});
    CHECK(outputs[1].kind == OutputKind::pictures);
    CHECK(outputs[1].output.letters == std::vector<std::size_t>{2, 0});
    Ledger ledger = office.open();
    CHECK(ledger.texts(ledger.runs().at(0).id).size() == 3);
    CHECK(ledger.states(ledger.runs().at(0).id) == std::vector(3, LetterState::unprinted));
}

TEST_CASE("sample letters on a form are not recorded and have no codes")
{
    const Office office;
    office.printCodes();
    const Outcome outcome =
        runViewer(office.folder, "--form '" + std::string(kForm) + "' --pdf o.pdf --png p --letters 1-2");
    CHECK(outcome.code == 0);
    CHECK(pagesOf(office.folder / "o.pdf").size() == 2);
    CHECK(!std::filesystem::exists(office.path));
}

TEST_CASE("covers are not recorded as letters")
{
    const Office office;
    CHECK(office.save("--pdf o.pdf --order insurer --bundles").code == 0);
    REQUIRE(office.outputs().size() == 1);
    CHECK(office.outputs()[0].output.letters == std::vector<std::size_t>{0, 1, 2});
}

TEST_CASE("a command that checks letters or fails records nothing")
{
    const Office office;
    (void)office.save("--check");
    CHECK(office.save("--pdf missing/o.pdf").code == 1);
    CHECK_FALSE(office.folder.has("台帳.db"));
}

TEST_CASE("a saved PDF has the codes of its letters when the operator prints codes")
{
    const Office office;
    CHECK(office.save("--pdf without.pdf").code == 0);
    office.printCodes();
    CHECK(office.save("--pdf with.pdf --letters 2").code == 0);
    Ledger ledger = office.open();
    const std::vector<std::string> codes = ledger.codes(ledger.runs().at(0).id);
    REQUIRE(codes.size() == 3);
    const std::vector<std::string> pages = pagesOf(office.folder / "with.pdf");
    REQUIRE(pages.size() == 1);
    CHECK(contains(packed(pages[0]), codes[1]));
    CHECK_FALSE(contains(packed(pagesOf(office.folder / "without.pdf").at(1)), codes[1]));
}

TEST_CASE("without a ledger the same files are saved without codes, and no ledger is made")
{
    const Office office;
    CHECK(office.save("--pdf with.pdf").code == 0);
    office.printCodes();
    std::filesystem::remove(office.path);
    ::setenv("ININ_LEDGER", "off", 1);
    const Outcome outcome = office.save("--pdf without.pdf");
    CHECK(outcome.code == 0);
    CHECK(outcome.errors.empty());
    CHECK(office.folder.bytes("without.pdf") == office.folder.bytes("with.pdf"));
    CHECK_FALSE(office.folder.has("台帳.db"));
}

TEST_CASE("a ledger that cannot be used is one sentence, and the files are saved")
{
    const Office office;
    writeBytes(office.folder / "file", "");
    ::setenv("ININ_LEDGER", (office.folder / "file/台帳.db").c_str(), 1);
    for (const bool hasCodes : {false, true}) {
        CAPTURE(hasCodes);
        if (hasCodes) office.printCodes();
        const Outcome outcome = office.save("--pdf o.pdf --png pictures");
        CHECK(outcome.code == 0);
        CHECK(outcome.errors == "台帳のファイル「" + (office.folder / "file/台帳.db") +
                                    "」を読み書きできないため、印刷や返送は台帳に記録されません。\n");
        CHECK(pagesOf(office.folder / "o.pdf").size() == 3);
        CHECK(office.folder.has("pictures/003.png"));
    }
}

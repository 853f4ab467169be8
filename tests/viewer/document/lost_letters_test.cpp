// Missing letters, additional rows caused by a line end in a value, and a single letter of the Aichi form are reported.
#include "system/file_path.h"
#include "viewer/document/letter_set.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

using Sentences = std::vector<std::string>;

/// A print job. The reader's pauses return immediately.
struct Job {
    explicit Job(std::size_t letters, const std::string &form = kForm)
        : script(writePrintJob(folder, form, std::vector<Row>(letters, ordinaryRow()))), csv(folder.bytes("委任状.csv"))
    {
    }

    [[nodiscard]] LetterSet open() const
    {
        return openScript(script, [] {});
    }
    /// Writes the record of a run that wrote `size` bytes and `letters` letters.
    void putRecord(std::size_t size, std::size_t letters) const
    {
        folder.put("委任状.run", "PrintInin run 1\r\nholder PC-1 1234\r\ncsv " + std::to_string(size) + "\r\nletters " +
                                     std::to_string(letters) + "\r\n");
    }
    [[nodiscard]] std::string path() const { return folder.path() + "\\委任状.csv"; }
    [[nodiscard]] std::string cutOff() const
    {
        return "「" + path() +
               "」は途中で切れているため、委任状が足りないおそれがあります。条件の画面から出力し直してください。";
    }
    [[nodiscard]] std::string difference(const std::string &letters, const std::string &rows) const
    {
        return "「" + path() + "」に書き出された委任状は" + letters + "通ですが、読み込んだ行は" + rows +
               "行です。データの中の改行などで委任状が増減したおそれがあります。印刷の前に内容を確認してください。";
    }

    TempFolder folder;
    std::string script, csv;
};

} // namespace

TEST_CASE("a letter file that ends inside a line is reported as truncated")
{
    const Job job(3);
    const std::size_t title = job.csv.find('\n') + 1;
    for (const std::size_t size :
         {title + 1, title + 30, job.csv.size() - 30, job.csv.size() - 2, job.csv.size() - 1}) {
        CAPTURE(size);
        job.folder.put("委任状.csv", job.csv.substr(0, size));
        const LetterSet set = job.open();
        CHECK(set.warnings == Sentences{job.cutOff()});
        CHECK(set.notices == set.warnings);
        const LetterTable &letters = set.reports[0].letters;
        CHECK(letters.fault(letters.size() - 1) == RowFault::cutOff);
    }
    job.folder.put("委任状.csv", job.csv);
    CHECK(job.open().warnings.empty());
}

TEST_CASE("a letter file that grows while it is opened is read completely")
{
    const Job job(3);
    std::size_t size = 1;
    job.folder.put("委任状.csv", "");
    const LetterSet set = openScript(job.script, [&] {
        size = std::min(size * 2, job.csv.size());
        job.folder.put("委任状.csv", job.csv.substr(0, size));
    });
    CHECK(set.size() == 3);
    CHECK(set.warnings.empty());
    CHECK(set.letterFiles[0].stamp == stampOf(job.path()));
}

TEST_CASE("a script that grows while it is opened is read completely")
{
    const Job job(1);
    const std::string script = bytesOf(job.script);
    writeBytes(job.script, script.substr(0, 10));
    const LetterSet set = openScript(job.script, [&] { writeBytes(job.script, script); });
    CHECK(set.size() == 1);
    CHECK(set.ending == Ending::printByDialog);
}

TEST_CASE("a truncated second letter file is reported, although its rows have no pages")
{
    const TempFolder folder;
    folder.put("f.svg", svgPage("<text x='9' y='9'>{{名}}{{控え.値}}</text>"));
    folder.put("a.csv", "\"\x96\xbc\"\r\n\"x\"\r\n");
    folder.put("b.csv", "\"\x92\x6c\"\r\n\"y\"");
    folder.put("s.dat", "FileName,\"" + folder / "f.svg" + "\"\r\nSetDataText,\"a\",\"" + folder / "a.csv" +
                            "\"\r\nSetDataText,\"\x8d\x54\x82\xa6\",\"" + folder / "b.csv" + "\"\r\n");
    const LetterSet set = openScript(folder / "s.dat", [] {});
    REQUIRE(set.warnings.size() == 1);
    CHECK(set.warnings[0].starts_with("「" + folder / "b.csv" + "」は途中で切れているため、"));
}

TEST_CASE("more or fewer rows than letters of the run are reported")
{
    const Job job(3);
    job.putRecord(job.csv.size(), 2);
    CHECK(job.open().warnings == Sentences{job.difference("2", "3")});
    job.putRecord(job.csv.size(), 4);
    CHECK(job.open().warnings == Sentences{job.difference("4", "3")});
    CHECK(job.open().notices == job.open().warnings);
}

TEST_CASE("a value with a line end is reported by the changed number of rows")
{
    const Job job(2);
    std::string csv = job.csv;
    csv.replace(csv.rfind("\",\""), 3, "\"\r\n\"");
    job.folder.put("委任状.csv", csv);
    job.putRecord(csv.size(), 2);
    CHECK(job.open().warnings == Sentences{job.difference("2", "3")});
}

TEST_CASE("a record with the same number of letters, or of a letter file of another size, is not reported")
{
    const Job job(3);
    job.putRecord(job.csv.size(), 3);
    CHECK(job.open().warnings.empty());
    job.putRecord(job.csv.size() + 1, 2);
    CHECK(job.open().warnings.empty());
}

TEST_CASE("a record that is missing, of another version, too large or a folder is ignored")
{
    const Job job(3);
    CHECK(job.open().notices.empty());
    const std::string lines = "csv " + std::to_string(job.csv.size()) + "\nletters 2\n";
    job.folder.put("委任状.run", "PrintInin run 2\n" + lines);
    CHECK(job.open().notices.empty());
    const std::string record = "PrintInin run 1\n" + lines;
    const std::string rest = "x" + std::string(4096 - record.size() - 2, ' ') + "\n";
    job.folder.put("委任状.run", record + rest);
    CHECK(job.open().notices.size() == 1);
    job.folder.put("委任状.run", record + rest + "\n");
    CHECK(job.open().notices.empty());
    std::filesystem::remove(longPathOf(job.folder / "委任状.run"));
    std::filesystem::create_directory(job.folder.folder() / pathOf("委任状.run"));
    CHECK(job.open().notices.empty());
}

TEST_CASE("a single letter of the Aichi form has a warning to compare the name, several letters have none")
{
    const Sentences name = {
        "この様式は一通だけ出力されます。印刷の前に、利用者の氏名と住所が正しいことを確認してください。"};
    const LetterSet set = Job(1, "委任状23.wfd").open();
    CHECK(set.warnings == name);
    CHECK(set.notices == name);
    CHECK(Job(2, "委任状23.wfd").open().warnings.empty());
    CHECK(Job(1, "委任状37_01.wfd").open().warnings.empty());
}

TEST_CASE("the blank Aichi form shows nothing of the row and has a warning to fill it in")
{
    const LetterSet set = Job(1, "委任状23_空欄.wfd").open();
    CHECK(set.warnings == Sentences{"この様式は空欄のまま印刷されます。利用者や受任者などは手で書き入れてください。"});
    const FormDocument &form = set.reports.front().form;
    CHECK(form.notices.empty());
    for (const DrawCommand &command : form.commands)
        if (const auto *const text = std::get_if<TextCommand>(&command)) CHECK_FALSE(text->isField());
}

#include "printing/csv_output.h"
#include "printing/print_fixture.h"
#include "support/errors.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace inin {

namespace {

constexpr const char *kLetterFile = "C:\\SUITE\\TMP\\委任状.csv";

const std::string kTitleLine =
    "\"対象開始日\",\"対象終了日\",\"保険者名\",\"利用者氏名\",\"利用者住所\",\"会社名称\",\"会社住所\",\"代表者名\","
    "\"会社電話番号\",\"金融機関名\",\"口座番号\",\"口座名義\",\"最終施術日\",\"保険者地区名\",\"保険種別\","
    "\"世帯主名\",\"世帯主電話\",\"世帯主住所\",\"金融機関名２\",\"署名日\"\r\n";

/// A screen with letters to write; each entry is a patient's name.
struct CsvFixture : PrintFixture {
    void letters(const std::vector<std::string> &names)
    {
        form.aIninRow.clear();
        for (const std::string &name : names) form.aIninRow.emplace_back().利用者氏名 = name;
        form.iRowCount = static_cast<std::int16_t>(names.size());
    }
    [[nodiscard]] std::string csv() const { return fromCp932(world.files.bytes(kLetterFile)); }
};

} // namespace

TEST_CASE_FIXTURE(CsvFixture, "a letter is one line of twenty quoted fields after the title line")
{
    form.aIninRow = {IninRow{"a1", "a2", "a3", "a4", "a5", "a6", "a7", "a8", "a9", "b1",
                             "b2", "b3", "b4", "b5", "b6", "b7", "b8", "b9", "c1", "c2"}};
    form.iRowCount = 1;
    form.saveCSVInin();

    CHECK(csv() == kTitleLine + "\"a1\",\"a2\",\"a3\",\"a4\",\"a5\",\"a6\",\"a7\",\"a8\",\"a9\",\"b1\",\"b2\",\"b3\","
                                "\"b4\",\"b5\",\"b6\",\"b7\",\"b8\",\"b9\",\"c1\",\"c2\"\r\n");
}

TEST_CASE_FIXTURE(CsvFixture, "the title line is these bytes of code page 932")
{
    letters({"x"});
    form.saveCSVInin();

    const std::string bytes = world.files.bytes(kLetterFile);
    CHECK(bytes.substr(0, 12) == "\"\x91\xCE\x8F\xDB\x8A\x4A\x8E\x6E\x93\xFA\"");
    const std::string title = bytes.substr(0, bytes.find("\r\n"));
    CHECK(title.ends_with("\"\x8B\xE0\x97\x5A\x8B\x40\x8A\xD6\x96\xBC\x82\x51\",\"\x8F\x90\x96\xBC\x93\xFA\""));
    CHECK(title.size() == 245);
}

TEST_CASE_FIXTURE(CsvFixture, "a letter of empty fields has all twenty quoted fields")
{
    letters({""});
    form.saveCSVInin();

    CHECK(
        csv() ==
        kTitleLine +
            "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
}

TEST_CASE_FIXTURE(CsvFixture, "a double quote and a comma inside a value are written unchanged")
{
    letters({"高\"橋,"});
    form.saveCSVInin();

    CHECK(csv().find("\"\",\"高\"橋,\",\"\"") != std::string::npos);
}

TEST_CASE_FIXTURE(CsvFixture,
                  "characters of the extended set are written, a character outside it becomes a question mark")
{
    letters({"髙﨑𠮷"});
    form.saveCSVInin();

    CHECK(world.files.bytes(kLetterFile).find("\"\xFB\xFC\xFA\xB1?\"") != std::string::npos);
}

TEST_CASE_FIXTURE(CsvFixture, "letters are written in the order of their array, up to the row count")
{
    letters({"一", "二", "三"});
    form.iRowCount = 2;
    form.saveCSVInin();

    const std::string text = csv();
    CHECK(text.find("一") < text.find("二"));
    CHECK(text.find("三") == std::string::npos);
    CHECK(std::ranges::count(text, '\n') == 3);
}

TEST_CASE_FIXTURE(CsvFixture, "a new run replaces the file of the previous run")
{
    letters({"一", "二", "三"});
    form.saveCSVInin();
    world.files.log.clear();
    letters({"四"});
    form.saveCSVInin();

    CHECK(csv().find("一") == std::string::npos);
    const std::string removal = std::string("remove ") + kLetterFile;
    const std::string opening = std::string("open >") + kLetterFile;
    const auto removed = std::ranges::find(world.files.log, removal);
    REQUIRE(removed != world.files.log.end());
    CHECK(std::ranges::find(removed, world.files.log.end(), opening) != world.files.log.end());
}

TEST_CASE_FIXTURE(CsvFixture, "without an earlier file nothing is deleted")
{
    letters({"一"});
    form.saveCSVInin();

    CHECK(std::ranges::find(world.files.log, std::string("remove ") + kLetterFile) == world.files.log.end());
}

TEST_CASE_FIXTURE(CsvFixture, "the file is in the folder of the setting, blanks included")
{
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_TMP=\\WORK \n");
    world.files.makeFolder("C:\\SUITE\\WORK ");
    letters({"一"});
    form.saveCSVInin();

    CHECK(world.files.has("C:\\SUITE\\WORK \\委任状.csv"));
}

TEST_CASE_FIXTURE(CsvFixture, "a missing folder setting warns, and the file is in the application folder")
{
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_SYS=\\SYS\n");
    letters({"一"});
    form.saveCSVInin();

    CHECK(onlyBox().text == "システム設定ファイルに、指定の項目が見つかりません。\r[SYSTEM_TMP]");
    CHECK(world.files.has("C:\\SUITE\\委任状.csv"));
}

TEST_CASE_FIXTURE(CsvFixture, "a file that the form tool keeps open is not replaced, and the error goes to the caller")
{
    letters({"一"});
    form.saveCSVInin();
    letters({"二"});
    world.files.removeErrors["c:\\suite\\tmp\\委任状.csv"] = 70;

    CHECK(errorOf([&] { form.saveCSVInin(); }) == 70);
    CHECK(csv().find("一") != std::string::npos);
}

TEST_CASE_FIXTURE(CsvFixture, "an error of the opening goes to the caller, and the old file is already deleted")
{
    letters({"一"});
    form.saveCSVInin();
    world.files.openOutputErrors["c:\\suite\\tmp\\委任状.csv"] = 75;

    CHECK(errorOf([&] { form.saveCSVInin(); }) == 75);
    CHECK_FALSE(world.files.has(kLetterFile));
}

TEST_CASE_FIXTURE(CsvFixture, "a missing temporary folder is error 76")
{
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_TMP=\\NOWHERE\n");
    letters({"一"});

    CHECK(errorOf([&] { form.saveCSVInin(); }) == 76);
}

TEST_CASE("a full disk leaves the part of the file already written")
{
    struct Row {
        int failingWrite;
        std::string left;
    };
    const std::string first =
        "\"\",\"\",\"\",\"一\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n";
    for (const Row &row : {Row{1, ""}, Row{2, kTitleLine}, Row{3, kTitleLine + first}}) {
        CsvFixture fixture;
        fixture.letters({"一", "二", "三"});
        fixture.world.files.failingWrite = row.failingWrite;
        CAPTURE(row.failingWrite);
        CHECK(errorOf([&] { fixture.form.saveCSVInin(); }) == 61);
        CHECK(fixture.csv() == row.left);
    }
}

TEST_CASE_FIXTURE(CsvFixture, "an error of the last bytes, written by the closing, goes to the caller")
{
    letters({"一"});
    world.files.failingClose = 1;

    CHECK(errorOf([&] { form.saveCSVInin(); }) == 61);
}

TEST_CASE_FIXTURE(CsvFixture, "a count beyond the remaining rows is error 9 after the existing rows are written")
{
    letters({"一"});
    form.iRowCount = 2;

    CHECK(errorOf([&] { form.saveCSVInin(); }) == 9);
    CHECK(csv().find("一") != std::string::npos);
}

} // namespace inin

// The CSV that a print run writes, whatever the database returned.

#include "printing/print_fixture.h"
#include "properties/property.h"

#include <fmt/format.h>

using namespace inin;
using namespace inin::test;

namespace {

using Fields = std::vector<std::string>;

/// Without a line end, and with no quote next to a comma, so that a line can be split. Code page 932 has all of it.
std::string anyValue()
{
    return anyText({"髙", "﨑", "利用", "ｶﾞ", "（株）", "A", "7", ",", "，", "x\"y", "'", " ", "　", "①"});
}

/// A row of the database, and the fields of its letter by the titles of the CSV, from left to right.
struct AnyPatient {
    Changes row;
    Fields letter;
    bool isKept = false;
};

AnyPatient anyPatient(std::int32_t number)
{
    AnyPatient patient;
    patient.row.emplace_back("nIDNo", number);
    const auto text = [&](const char *column) {
        std::string value = anyValue();
        patient.row.emplace_back(column, value);
        return value;
    };
    const auto kind = [&](const char *column) {
        const int value = anyNumber(0, 5);
        patient.row.emplace_back(column, static_cast<std::int16_t>(value));
        return static_cast<std::size_t>(value);
    };
    constexpr const char *kBanks[] = {"", "銀行", "金庫", "農協", "郵便局", ""};
    constexpr const char *kOffices[] = {"", "本店", "支店", "本所", "支所", "出張所"};
    constexpr const char *kAccounts[] = {"", "(普)", "(当)", "(通)", "(別)", ""};
    patient.letter = {"2024/05/01", "2024/05/31"};
    for (const char *column : {"HokenName", "RiyouName", "RiyouAdd", "CorpName", "CorpAdd", "cDaihyo", "cTelNo"})
        patient.letter.push_back(text(column));
    const std::string bank = text("cKinyuName"), office = text("cKinyuSiten");
    const std::string line = bank + kBanks[kind("iKinSyubetsu")] + "  " + office + kOffices[kind("iKinSiten")];
    patient.letter.push_back(line);
    const std::string account = kAccounts[kind("iKozaType")];
    patient.letter.push_back(account + " " + text("cKozaBangou"));
    patient.letter.push_back(text("cKozaMeigi1"));
    patient.letter.emplace_back("2024/05/28");
    patient.letter.push_back(text("cSubAddress"));
    const std::size_t insurance = kind("HOKENSHUBETSU");
    patient.letter.push_back(std::to_string(insurance));
    for (const char *column : {"cSetaiName", "RiyouSetaiTel", "cSetaiAdress1"}) patient.letter.push_back(text(column));
    // Only blanks that trimming removes: the full-width one is text.
    const bool isBlank = line.find_first_not_of(' ') == std::string::npos;
    patient.letter.push_back(isBlank ? "" : bank + "銀行  " + office + "支店");
    patient.letter.emplace_back("2024/05/01");
    patient.isKept = !oneIn(3);
    return patient;
}

/// The fields of each line. A line that does not end with CR LF, or has a field without quotes, is one field.
std::vector<Fields> linesOf(const std::string &csv)
{
    std::vector<Fields> lines;
    for (std::size_t begin = 0; begin < csv.size();) {
        const std::size_t end = std::min(csv.find('\n', begin), csv.size());
        std::string line = csv.substr(begin, end - begin);
        begin = end + 1;
        Fields &fields = lines.emplace_back();
        if (!line.starts_with('"') || !line.ends_with("\"\r")) {
            fields.push_back(line);
            continue;
        }
        line = line.substr(1, line.size() - 3);
        for (std::size_t at = 0; at != std::string::npos;) {
            const std::size_t next = line.find("\",\"", at);
            fields.push_back(line.substr(at, next == std::string::npos ? next : next - at));
            at = next == std::string::npos ? next : next + 3;
        }
    }
    return lines;
}

} // namespace

TEST_CASE("the CSV has a title and one line of twenty fields for each kept row, in the order of the extraction")
{
    checkProperty(300, [] {
        PrintFixture fixture;
        fixture.form.csTargetDate = "2024/05/28";
        std::vector<Changes> rows;
        std::vector<Fields> letters;
        for (std::int32_t number = anyNumber(0, 12); number > 0; --number) {
            const AnyPatient patient = anyPatient(number);
            rows.push_back(patient.row);
            if (patient.isKept) letters.push_back(patient.letter);
            const std::int32_t lastVisit = patient.isKept ? 20240528 : 20240529;
            fixture.world.database.resultsByText.emplace_back(
                fmt::format("AND nIDRiyoushaNo = {} AND nDate BETWEEN", number), visits("nDate", {lastVisit}));
        }
        fixture.answerTo("FROM HOKENJA, SCHEDULE, RIYOUSHA", patients(rows));

        RC_ASSERT(fixture.form.iGetKanjaDataDay() == 0);
        fixture.form.saveCSVInin();

        std::vector<Fields> lines = linesOf(fromCp932(fixture.world.files.bytes("C:\\SUITE\\TMP\\委任状.csv")));
        RC_ASSERT(!lines.empty());
        RC_ASSERT(lines.front().size() == 20U);
        lines.erase(lines.begin());
        RC_ASSERT(lines == letters);
    });
}

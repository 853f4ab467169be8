#include "search/search_fixture.h"

#include <algorithm>

namespace inin {

SearchFixture::SearchFixture()
{
    answer(kStaffList,
           staffRows({{std::int32_t{11}, "佐藤 花子", "ｻﾄｳ ﾊﾅｺ"}, {std::int32_t{12}, "鈴木 次郎", "ｽｽﾞｷ ｼﾞﾛｳ"}}));
    answer(kStaffFound,
           staffRows({{std::int32_t{11}, "佐藤 花子", "ｻﾄｳ ﾊﾅｺ"}, {std::int32_t{12}, "鈴木 次郎", "ｽｽﾞｷ ｼﾞﾛｳ"}}));
    const auto patient = [](std::int32_t nIDNo, const char *name) {
        return std::vector<Variant>{std::int16_t{1}, std::int16_t{2},    nIDNo,      name,  "ｶﾅ",
                                    "06-1234-0001",  "大阪市北区１－１", "２０１号", "梅田"};
    };
    answer(kPatientsFound, patientRows({patient(21, "青木 一郎"), patient(22, "髙橋 﨑子"), patient(23, "井上 三郎")}));
}

void SearchFixture::answer(const char *part, const FakeResult &result)
{
    auto &answers = world.database.resultsByText;
    const auto known = std::ranges::find(answers, part, [](const auto &entry) { return entry.first; });
    if (known != answers.end())
        known->second = result;
    else
        answers.emplace_back(part, result);
}

std::vector<std::string> SearchFixture::statements() const
{
    std::vector<std::string> texts;
    for (const std::string &line : world.database.log)
        if (line.starts_with("sql ")) texts.push_back(line.substr(line.find(' ', 4) + 1));
    return texts;
}

std::vector<std::string> SearchFixture::boxTexts() const
{
    std::vector<std::string> texts;
    for (const ShownBox &box : world.boxes.shown) texts.push_back(box.text);
    return texts;
}

long SearchFixture::count(const std::string &word) const
{
    return std::ranges::count(world.windows.log, word);
}

FakeResult staffRows(const std::vector<std::vector<Variant>> &rows)
{
    FakeResult result;
    result.columns = {"nIDNo", "cName", "cNameKana"};
    result.rows = rows;
    return result;
}

FakeResult patientRows(const std::vector<std::vector<Variant>> &rows)
{
    FakeResult result;
    result.columns = {"iKyotenCd", "iKyotenEb", "nIDNo",    "cName",     "cNameKana",
                      "cTelNo",    "cAdress1",  "cAdress2", "cNameRyaku"};
    result.rows = rows;
    return result;
}

FakeResult failure()
{
    FakeResult result;
    result.error = ado_error::faultyStatement;
    result.description = "構文が正しくありません。";
    return result;
}

std::vector<std::string> rowTexts(const Grid &grid, std::int32_t row)
{
    std::vector<std::string> texts;
    for (std::int16_t column = 1; column <= grid.ColumnCount(); ++column) texts.push_back(grid.text(row, column));
    return texts;
}

void open(Form &window)
{
    window.load();
    window.Form_Activate();
}

void press(Button &button)
{
    button.onClick();
}

void press(const MenuEntry &entry)
{
    entry.onClick();
}

} // namespace inin

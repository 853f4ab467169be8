#include "printing/print_fixture.h"

#include <algorithm>
#include <stdexcept>

namespace inin {

namespace {

const Changes kOrdinaryPatient = {
    {"HokenName", "高松市"},
    {"RiyouName", "利用　花子"},
    {"RiyouAdd", "香川県高松市番町１－８－１５"},
    {"nIDNo", std::int32_t{7}},
    {"CorpName", "株式会社さくら"},
    {"CorpAdd", "東京都千代田区１－１"},
    {"cDaihyo", "代表　太郎"},
    {"cTelNo", "03-1111-2222"},
    {"cKinyuName", "みどり"},
    {"cKinyuSiten", "中央"},
    {"iKozaType", std::int16_t{1}},
    {"cKozaBangou", "1234567"},
    {"cKozaMeigi1", "カ）サクラ"},
    {"iKinSyubetsu", std::int16_t{2}},
    {"iKinSiten", std::int16_t{1}},
    {"nDate", std::int32_t{20240528}},
    {"tServicyDayStart", "2024/05/28 10:30:00"},
    {"cSubAddress", "番町地区"},
    {"HOKENSHUBETSU", std::int16_t{3}},
    {"cSetaiName", "世帯　一郎"},
    {"RiyouSetaiTel", "087-333-4444"},
    {"cSetaiAdress1", "香川県高松市番町"},
};

} // namespace

FakeResult patients(const std::vector<Changes> &changes)
{
    FakeResult result;
    std::vector<Variant> ordinary;
    for (const auto &[column, value] : kOrdinaryPatient) {
        result.columns.push_back(column);
        ordinary.push_back(value);
    }
    for (const Changes &patient : changes) {
        std::vector<Variant> &row = result.rows.emplace_back(ordinary);
        for (const auto &[column, value] : patient) {
            const auto found = std::ranges::find(result.columns, column);
            if (found == result.columns.end()) throw std::logic_error("no such column: " + column);
            row.at(static_cast<std::size_t>(found - result.columns.begin())) = value;
        }
    }
    return result;
}

FakeResult visits(const std::string &column, const std::vector<Variant> &values)
{
    FakeResult result;
    result.columns = {"iKyotenCd", column};
    for (const Variant &value : values) result.rows.push_back({std::int16_t{1}, value});
    return result;
}

void PrintFixture::answerTo(const char *statement, FakeResult result)
{
    auto &answers = world.database.resultsByText;
    std::erase_if(answers, [&](const auto &answer) { return answer.first == statement; });
    answers.emplace_back(statement, std::move(result));
}

PrintFixture::PrintFixture()
{
    answerTo(kStaffSql, staffMembers({{std::int32_t{11}, "佐藤 花子"}, {std::int32_t{12}, "鈴木 次郎"}}));
    answerTo(kInsuranceSql, insuranceKinds({{std::int32_t{1}, "国保"}, {std::int32_t{2}, "後期"}}));
    form.csTargetDate = "2024/05/1";
    form.iTgtDateKind = 1;
    form.iObjectKind = 1;
    form.iDspPeriodKind = 1;
    form.iTrustKind = 1;
    form.nStaffNo = -1;
    form.nKanjaNo = -1;
    form.imD_Out.Value = DateSerial(2024, 5, 1);
    form.imD_LastDay.Value = DateSerial(2024, 5, 28);
    form.imSetDateFrom.Value = DateSerial(2024, 4, 10);
    form.imSetDateTo.Value = DateSerial(2024, 9, 9);
    form.imSyomei.Value = DateSerial(2024, 6, 3);
    form.cmbHoken.AddItem("－ 指定なし －", -1);
    form.cmbHoken.AddItem("国保", 30);
    form.cmbHoken.ListIndex = std::int16_t{0};
}

void PrintFixture::markScreen()
{
    form.optTgtDate(0).Value = true;
    form.optObject(0).Value = true;
    form.optTrust(0).Value = true;
    form.optDspPeriod(0).Value = true;
    form.optPrint(0).Value = true;
    form.optSyomei(0).Value = true;
}

std::string PrintFixture::firstSql() const
{
    for (const std::string &line : world.database.log)
        if (line.starts_with("sql ")) return line.substr(line.find(' ', 4) + 1);
    throw std::logic_error("no statement was opened");
}

const ShownBox &PrintFixture::onlyBox() const
{
    if (world.boxes.shown.size() != 1) throw std::logic_error("there are other than one box");
    return world.boxes.shown.front();
}

std::vector<std::string> PrintFixture::boxTexts() const
{
    std::vector<std::string> texts;
    for (const ShownBox &box : world.boxes.shown) texts.push_back(box.text);
    return texts;
}

ShownBox centralBox(const std::string &number, const std::string &description, const std::string &procedure)
{
    return {"下記の情報をオルバーネ株式会社までお伝えください。\rｴﾗｰNo.=" + number + "（" + description +
                "）\rﾌｫｰﾑ名=frmPrintInin\r関数名=" + procedure + "\r",
            Icon::critical, "エラーが発生しました。メンテナンス処理"};
}

} // namespace inin

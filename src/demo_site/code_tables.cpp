#include "demo_site/code_tables.h"

namespace inin::site {

namespace {

struct HokenRow {
    std::int64_t type; ///< also the index in the screen's list, by which the print run filters
    std::string_view name;
    std::string_view shortName;
    std::string_view label;
};
constexpr HokenRow kHoken[] = {
    {1, "国民健康保険", "国", "国保"},           {2, "健康保険組合", "組", "組合健保"},
    {3, "全国健康保険協会", "協", "協会けんぽ"}, {4, "共済組合", "共", "共済"},
    {5, "後期高齢者医療", "後", "後期高齢"},     {6, "生活保護", "生", "生保"},
    {7, "労働者災害補償保険", "労", "労災"},     {8, "自費", "自", "自費"},
};
static_assert(kHoken[0].type == hoken::national && kHoken[1].type == hoken::association &&
              kHoken[4].type == hoken::lateStage);

struct FormRow {
    std::int64_t branch; ///< 0 for the print types 0 and 1, which apply to the whole system
    std::int64_t number;
    std::int64_t printType;
    std::string_view file;
    std::string_view title;
};
constexpr FormRow kFormRows[] = {
    {0, 1, 0, "申請書_マッサージ.wfd", "療養費支給申請書（マッサージ）"},
    {0, 2, 0, "申請書_鍼灸.wfd", "療養費支給申請書（はり・きゅう）"},
    {0, 1, 1, "総括票.wfd", "総括票"},
    {1, 1, 2, "送付書_高松市.wfd", "送付書（高松市）"},
    {1, 2, 2, "送付書_愛知県.wfd", "送付書（愛知県）"},
};

// The amounts are invented; only the assignment of class and code to a fee matters.
struct FeeRow {
    std::int64_t kind;
    std::int64_t code;
    std::int64_t earlier;
    std::int64_t later;
};
constexpr FeeRow kFees[] = {
    {1, 1, 300, 350},    {1, 2, 700, 770},    {1, 3, 100, 120},    {1, 4, 140, 150},  {1, 11, 1500, 1550},
    {1, 12, 1560, 1610}, {1, 13, 3200, 3300}, {1, 14, 3300, 3400}, {1, 15, 30, 40},   {1, 16, 1700, 1800},
    {1, 17, 1800, 1900}, {1, 18, 400, 450},   {2, 1, 1800, 2300},  {2, 2, 700, 300},  {9, 1, 400, 450},
    {9, 2, 800, 900},    {9, 3, 1200, 1350},  {9, 11, 3000, 3300}, {9, 12, 500, 550},
};

struct ChargeRow {
    std::int64_t charge;
    std::int64_t metres;
};
constexpr ChargeRow kCharges[] = {{1800, 2000}, {2300, 4000}, {2600, 6000}, {2900, 16000}};

struct Period {
    std::string_view start;
    std::string_view end;
};
constexpr Period kEarlier{"1990/01/01", "2022/05/31"};
constexpr Period kLater{"2022/06/01", "9999/12/31"};

std::string text(std::string_view value)
{
    return std::string(value);
}

void writeInsurers(RowTarget &database)
{
    constexpr std::string_view kColumns[] = {"cIDno", "cName", "cSubAddress", "iType"};
    Insert insert(database, "HOKENJA", kColumns);
    for (const auto insurers : {nationalInsurers(), lateStageInsurers(), associationInsurers()}) {
        for (const Insurer &insurer : insurers) {
            insert.row({text(insurer.number), text(insurer.name),
                        insurer.district.empty() ? Cell{kNull} : Cell{text(insurer.district)}, insurer.kind});
        }
    }
    insert.row({"99999999", kNull, kNull, kNull}); // a row that was created but never filled in
}

void writeBranches(RowTarget &database)
{
    constexpr std::string_view kColumns[] = {"iKyotenCd", "iKyotenEb", "cKyotenName"};
    Insert insert(database, "KYOTEN", kColumns);
    insert.row({kBranchCode, std::int64_t{1}, "高松本社"});
    insert.row({kBranchCode, std::int64_t{2}, "豊橋支社"});
    insert.row({kBranchCode, std::int64_t{3}, kNull});
}

void writeKinds(RowTarget &database)
{
    constexpr std::string_view kColumns[] = {"iKyotenCd", "iKyotenEb", "cName", "cRyaku", "cType", "iType"};
    Insert insert(database, "HOKEN", kColumns);
    for (const HokenRow &row : kHoken) {
        insert.row({kBranchCode, kBranchSubCode, text(row.name), text(row.shortName), text(row.label), row.type});
    }
}

void writeForms(RowTarget &database, const SiteOrder &order)
{
    constexpr std::string_view kColumns[] = {"iKyotenCd",           "iKyotenEb",          "nIDNo",        "cFileName",
                                             "cDispName",           "iSejutsuKubun",      "iHokenType",   "iDelFlg",
                                             "iSinseiTP",           "iSoufushoTP",        "iDuplexFlg",   "iStateNo",
                                             "iRiyouHokenKbn",      "tUpDateTime",        "iPrintType",   "iKubun",
                                             "iKanagawaStaffPrint", "iJoseiFutanKiriage", "iTekiyouStaff"};
    Insert insert(database, "SHINSEISYO", kColumns);
    const std::string updated = isoText(dayOfMonth(order.month, 1), 9 * 60);
    const Cell zero = std::int64_t{0};
    for (const FormRow &row : kFormRows) {
        insert.row({row.branch, row.branch, row.number, text(row.file), text(row.title), zero, zero, kNull, zero, zero,
                    zero, std::int64_t{37}, zero, updated, row.printType, zero, zero, zero, zero});
    }
}

void writeFees(RowTarget &database)
{
    constexpr std::string_view kFeeColumns[] = {"cStartDate", "cEndDate", "iTankaKbn", "nTankaCode", "nTanka"};
    constexpr std::string_view kChargeColumns[] = {"cStartDate", "cEndDate", "nKingakuOuryou", "nMaxLen"};
    Insert fees(database, "療養費単価", kFeeColumns);
    for (const FeeRow &row : kFees) {
        fees.row({text(kEarlier.start), text(kEarlier.end), row.kind, row.code, row.earlier});
        fees.row({text(kLater.start), text(kLater.end), row.kind, row.code, row.later});
    }
    Insert charges(database, "往療費区分", kChargeColumns);
    for (const Period &period : {kEarlier, kLater}) {
        for (const ChargeRow &row : kCharges) {
            charges.row({text(period.start), text(period.end), row.charge, row.metres});
        }
    }
}

/// The company's map as written without a picture: a single zero byte in each column.
void writeMap(RowTarget &database, const SiteOrder &order)
{
    constexpr std::string_view kColumns[] = {"iKyotenCd", "iKyotenEb", "nIDNo",     "bAddr1",
                                             "bAddr2",    "bAddr3",    "dTimeStamp"};
    const Blob empty{std::string(1, '\0')};
    Insert insert(database, "RIYOUSHA_MAP", kColumns);
    insert.row(
        {kBranchCode, kBranchSubCode, std::int64_t{0}, empty, empty, empty, isoText(dayOfMonth(order.month, 1))});
}

} // namespace

void writeCodeTables(RowTarget &database, const SiteOrder &order)
{
    writeInsurers(database);
    writeBranches(database);
    writeKinds(database);
    writeForms(database, order);
    writeFees(database);
    writeMap(database, order);
}

} // namespace inin::site

#include "printing/extraction.h"

namespace inin {

namespace {

/// The report kind that prints a single letter.
constexpr std::int16_t kSingleLetterKind = 1;
constexpr std::int16_t kHeadOffice = 1;

constexpr SqlPiece kHeadOfficeColumns[] = {
    {" CORP.cShamei1 as CorpName, CORP.cAddress1 as CorpAdd, CORP.cDaihyo, "},
    {" CORP.cTelNo, CORP.cKinyuName, CORP.cKinyuSiten, "},
};
constexpr std::string_view kHeadOfficeKinds = " CORP.iKinSyubetsu, CORP.iKinSiten ";

/// A column of the agent's row, or of the group-billing company's if the patient is billed in a group.
struct AgentColumn {
    std::string_view column;
    std::string_view alias;
    std::string_view tail;
};
constexpr AgentColumn kAgentColumns[] = {
    {"cShamei1", "CorpName", ",  "},       {"cAddress1", "CorpAdd", ", "},
    {"cDaihyo", "cDaihyo", ", "},          {"cTelNo", "cTelNo", ", "},
    {"cKinyuName", "cKinyuName", ", "},    {"cKinyuSiten", "cKinyuSiten", ", "},
    {"iKozaType", "iKozaType", ", "},      {"cKozaBangou", "cKozaBangou", ", "},
    {"cKozaMeigi1", "cKozaMeigi1", ",  "}, {"iKinSyubetsu", "iKinSyubetsu", ",  "},
    {"iKinSiten", "iKinSiten", "  "},
};

constexpr SqlPiece kCommonColumns[] = {
    {" ,HOKENJA.cSubAddress, HOKENJA.iType AS HOKENSHUBETSU "},
    {" ,RIYOUSHA.cSetaiName, RIYOUSHA.cSetaiTelNo AS RiyouSetaiTel, RIYOUSHA.cSetaiAdress1"},
};
constexpr SqlPiece kCompanyJoin[] = {
    {" LEFT JOIN CORP ON "},
    {"      CORP.iKyotenCd = ", AppendedValue::iKyotenCd},
    {"      AND CORP.iKyotenEb = ", AppendedValue::iKyotenEb},
};
constexpr std::string_view kHeadOfficeRow = " AND CORP.iType = 0 ";
constexpr std::string_view kAgentRow = " AND CORP.nIDNo = RIYOUSHA.nDairiID ";
/// Every statement has these joins, even if no column uses them: a branch with several group-billing companies (type 3)
/// gets each letter once for each of them. The conditions common to all statements follow.
constexpr SqlPiece kGroupJoinsAndBranch[] = {
    {" LEFT JOIN RIYOUSHA_SUB ON "},
    {"          RIYOUSHA_SUB.nIDNo = RIYOUSHA.nIDNo "},
    {"      AND RIYOUSHA_SUB.iKyotenCd = ", AppendedValue::iKyotenCd},
    {"      AND RIYOUSHA_SUB.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" LEFT JOIN CORP AS DANTAICORP ON "},
    {"          DANTAICORP.iKyotenCd = ", AppendedValue::iKyotenCd},
    {"      AND DANTAICORP.iKyotenEb = ", AppendedValue::iKyotenEb},
    {"      AND DANTAICORP.iType = 3 "},
    {" WHERE "},
    {"     RIYOUSHA.iKyotenCd = ", AppendedValue::iKyotenCd},
    {" AND RIYOUSHA.iKyotenEb = ", AppendedValue::iKyotenEb},
    {" AND HOKENJA.cIDno = RIYOUSHA.cHokenNo "},
};

std::string valueOf(AppendedValue appended, const ExtractionQuery &query)
{
    switch (appended) {
    case AppendedValue::nothing:
        return {};
    case AppendedValue::iKyotenCd:
        return std::to_string(query.iKyotenCd);
    case AppendedValue::iKyotenEb:
        return std::to_string(query.iKyotenEb);
    case AppendedValue::lowerBound:
        return query.bounds.lower;
    case AppendedValue::upperBound:
        return query.bounds.upper;
    case AppendedValue::nKanjaNo:
        return std::to_string(query.nKanjaNo);
    }
    return {};
}

void append(std::string &sql, std::span<const SqlPiece> pieces, const ExtractionQuery &query)
{
    for (const SqlPiece &piece : pieces) {
        sql += piece.text;
        sql += valueOf(piece.appended, query);
    }
}

void appendCompanyColumns(std::string &sql, const ExtractionRule &rule, const ExtractionQuery &query)
{
    if (query.iTrustKind == kHeadOffice) {
        append(sql, kHeadOfficeColumns, query);
        sql += rule.accountPiece;
        sql += kHeadOfficeKinds;
        return;
    }
    for (const AgentColumn &agent : kAgentColumns) {
        sql += " (CASE WHEN RIYOUSHA_SUB.iDantaiUmu = 1 THEN DANTAICORP.";
        sql += agent.column;
        sql += " ELSE CORP.";
        sql += agent.column;
        sql += " END) as ";
        sql += agent.alias;
        sql += agent.tail;
    }
}

/// Only a number above 0 is a condition: an empty box is -1, and 0 means all patients or all staff.
void appendFilter(std::string &sql, std::string_view condition, std::int32_t number)
{
    if (number <= 0) return;
    sql += condition;
    sql += std::to_string(number);
}

} // namespace

/// Deliberate: without DISTINCT. A patient with two qualifying visits gets two letters. With head-office data the two
/// extractions by month select the visit twice, in head and accountPiece.
std::string extractionSql(const ExtractionRule &rule, const ExtractionQuery &query)
{
    const bool isSingle = query.iPrintKind == kSingleLetterKind && !rule.singleHead.empty();
    std::string sql(isSingle ? rule.singleHead : rule.head);
    appendCompanyColumns(sql, rule, query);
    append(sql, kCommonColumns, query);
    sql += rule.from;
    append(sql, kCompanyJoin, query);
    sql += query.iTrustKind == kHeadOffice ? kHeadOfficeRow : kAgentRow;
    append(sql, kGroupJoinsAndBranch, query);
    append(sql, rule.visitCondition, query);
    appendFilter(sql, " AND RIYOUSHA.nIDNo = ", query.nKanjaNo);
    appendFilter(sql, rule.staffColumn, query.nStaffNo);
    appendFilter(sql, " AND RIYOUSHA.iHoken = ", query.iHokenIndex);
    if (query.iExpireKind == 0) sql += rule.openEndedOnly;
    sql += rule.order;
    return sql;
}

std::string lastVisitSql(const LastVisitRule &rule, const ExtractionQuery &query)
{
    std::string sql;
    append(sql, rule.pieces, query);
    return sql;
}

} // namespace inin

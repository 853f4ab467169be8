#include "site_check/site_check.h"

#include "adapters/database/connection_parts.h"
#include "adapters/database/connection_string.h"
#include "adapters/native/native_platform.h"
#include "adapters/sqlite/sqlite_database.h"
#include "common/helpers.h"
#include "demo_site/database_maker.h"
#include "demo_site/demo_irregularities.h"
#include "demo_site/site_maker.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

/// A demo site has patients without a known agent on purpose.
enum class Origin { practice, demo };

/// More findings of one kind in a table would hide the others.
constexpr std::size_t kMaxValues = 50;

/// Columns whose values are written to the letters unchanged.
struct LetterColumns {
    std::string_view table;
    std::string_view key; ///< names the row in a finding
    std::vector<std::string_view> columns;
    bool isOfBranch;
};
const LetterColumns kLetterColumns[] = {
    {"RIYOUSHA", "nIDNo", {"cName", "cAdress1", "cSetaiName", "cSetaiTelNo", "cSetaiAdress1"}, true},
    {"CORP",
     "nIDNo",
     {"cShamei1", "cAddress1", "cDaihyo", "cTelNo", "cKinyuName", "cKinyuSiten", "cKozaBangou", "cKozaMeigi1"},
     true},
    {"HOKENJA", "cIDno", {"cName", "cSubAddress"}, false},
};

/// What a value contains that breaks the letter file, where values are quoted but not escaped: a line end starts
/// another letter; a separator (also one completed by a quote next to the value) starts another column. Empty for a
/// harmless value.
std::string_view breakIn(std::string_view value)
{
    if (value.find_first_of("\r\n") != std::string_view::npos) return "改行";
    const bool hasSeparator = value.find("\",\"") != std::string_view::npos;
    return hasSeparator || value.starts_with(",\"") || value.ends_with("\",") ? "列の区切り（\",\"）" : "";
}

std::string keyText(const Variant &key)
{
    return key.isNull() ? "NULL" : toText(key, Regional{});
}

/// An open database and its checks.
class DatabaseCheck {
public:
    DatabaseCheck(SiteDatabase &site, Findings &findings) : m_site(site), m_findings(findings) {}

    void checkTables()
    {
        for (const TableColumns &table : schemaTables()) checkTable(table);
    }

    void checkRows(const Branch &branch, Origin origin)
    {
        const std::string where = fmt::format("iKyotenCd = {} AND iKyotenEb = {}", branch.code, branch.subCode);
        const std::string companies = "SELECT nIDNo FROM CORP WHERE " + where;
        checkCount("本社", companies + " AND iType = 0", FindingKind::noHeadOffice, FindingKind::severalHeadOffices);
        checkCount("団体請求", companies + " AND iType = 3", FindingKind::noGroupCompany,
                   FindingKind::severalGroupCompanies);
        checkAgents(branch, origin);
        checkStaff(where);
        for (const LetterColumns &letter : kLetterColumns)
            checkLetterValues(letter, letter.isOfBranch ? " WHERE " + where : std::string());
    }

private:
    std::unique_ptr<Recordset> open(const std::string &sql)
    {
        std::unique_ptr<Recordset> rows = m_site.database->newRecordset();
        rows->Open(sql, *m_site.connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
        return rows;
    }

    void checkTable(const TableColumns &table)
    try {
        const std::unique_ptr<Recordset> rows = open("SELECT TOP 1 * FROM " + table.name);
        std::vector<std::string> present;
        for (std::size_t i = 0; i < rows->fieldCount(); ++i) present.push_back(asciiLower(rows->fieldName(i)));
        for (const SchemaColumn &column : table.columns) {
            if (std::ranges::find(present, asciiLower(column.name)) != present.end()) continue;
            m_findings.push_back({FindingKind::missingColumn, table.name + "." + column.name,
                                  fmt::format("テーブル「{}」に列「{}」がありません。", table.name, column.name)});
        }
    } catch (const RuntimeError &error) {
        if (error.number() == ado_error::noSuchTable)
            m_findings.push_back(
                {FindingKind::missingTable, table.name, fmt::format("テーブル「{}」がありません。", table.name)});
        else
            m_findings.push_back(
                {FindingKind::unreadableTable, table.name,
                 fmt::format("テーブル「{}」を読み込めません。（{}）", table.name, error.description())});
    }

    std::int32_t count(const std::string &sql)
    {
        const std::unique_ptr<Recordset> rows = open(sql);
        std::int32_t number = 0;
        for (; !rows->isEndOfFile(); rows->MoveNext()) ++number;
        return number;
    }

    /// Without such a company the letters lack it; with several each letter is repeated.
    void checkCount(std::string_view role, const std::string &sql, FindingKind none, FindingKind several)
    try {
        const std::int32_t number = count(sql);
        if (number == 0)
            m_findings.push_back({none, "CORP", fmt::format("この拠点に{}の会社（CORP）がありません。", role)});
        else if (number > 1)
            m_findings.push_back(
                {several, "CORP",
                 fmt::format("この拠点に{}の会社（CORP）が{}件あり、委任状が重複します。", role, number)});
    } catch (const RuntimeError &) {
        // A table or column that cannot be read is already a finding.
    }

    /// Patients whose agent is unknown; their letters for the agent lack the company and the bank.
    void checkAgents(const Branch &branch, Origin origin)
    try {
        const std::string agents = fmt::format(
            "SELECT RIYOUSHA.nIDNo, RIYOUSHA.cName FROM RIYOUSHA LEFT JOIN CORP ON CORP.iKyotenCd = {0}"
            " AND CORP.iKyotenEb = {1} AND CORP.nIDNo = RIYOUSHA.nDairiID WHERE RIYOUSHA.iKyotenCd = {0}"
            " AND RIYOUSHA.iKyotenEb = {1} AND RIYOUSHA.nDairiID > 0 AND CORP.nIDNo IS NULL ORDER BY RIYOUSHA.nIDNo",
            branch.code, branch.subCode);
        std::vector<std::string> patients, demoPatients;
        for (const auto rows = open(agents); !rows->isEndOfFile(); rows->MoveNext()) {
            const std::int32_t number = nNullToLong(rows->Value(0));
            const bool isOfDemo = origin == Origin::demo && kMissingAgent.has(number);
            (isOfDemo ? demoPatients : patients)
                .push_back(fmt::format("{} {}", number, csNullToStr(rows->Value(1), Regional{})));
        }
        addMissingAgents(FindingKind::missingAgent, patients);
        addMissingAgents(FindingKind::demoMissingAgent, demoPatients);
    } catch (const RuntimeError &) {
        // As above.
    }

    void addMissingAgents(FindingKind kind, const std::vector<std::string> &patients)
    {
        if (patients.empty()) return;
        const std::size_t shown = std::min(patients.size(), kMaxValues);
        const std::string others = shown < patients.size() ? fmt::format("、ほか{}人", patients.size() - shown) : "";
        const std::string who = fmt::format(
            "{}{}", fmt::join(patients.begin(), patients.begin() + static_cast<std::ptrdiff_t>(shown), "、"), others);
        m_findings.push_back(
            {kind, "RIYOUSHA.nDairiID",
             fmt::format(
                 "代理人（nDairiID）が会社（CORP）にない利用者が{}人います（{}）。代理人あての委任状の会社と口座が"
                 "空になるので、利用者の代理人を選び直すか、その番号の会社を登録してください。",
                 patients.size(), who)});
    }

    /// The program's staff list contains active staff only; if it is empty, the screen closes at once.
    void checkStaff(const std::string &where)
    try {
        if (count(fmt::format("SELECT TOP 1 nIDNo FROM STAFF WHERE {} AND (iChusiFlg = 0 OR iChusiFlg IS NULL)",
                              where)) == 0)
            m_findings.push_back(
                {FindingKind::noStaff, "STAFF", "この拠点に施術者（STAFF）がいないので、画面が開きません。"});
    } catch (const RuntimeError &) {
        // As above.
    }

    /// Finds values that would add or break letters; the program writes them without a message.
    void checkLetterValues(const LetterColumns &letter, const std::string &where)
    try {
        std::size_t count = 0;
        for (const auto rows = open(fmt::format("SELECT {0}, {1} FROM {2}{3} ORDER BY {0}", letter.key,
                                                fmt::join(letter.columns, ", "), letter.table, where));
             !rows->isEndOfFile(); rows->MoveNext())
            for (std::size_t at = 0; at < letter.columns.size(); ++at)
                checkLetterValue(letter, letter.columns[at], rows->Value(0), rows->Value(at + 1), count);
        if (count > kMaxValues)
            m_findings.push_back({FindingKind::moreBreakingValues, std::string(letter.table),
                                  fmt::format("テーブル「{}」に、委任状が増えるか崩れる値がほかに{}件あります。",
                                              letter.table, count - kMaxValues)});
    } catch (const RuntimeError &) {
        // A missing table or column is already a finding.
    }

    /// Counts values that break letters, and reports each up to the limit.
    void checkLetterValue(const LetterColumns &letter, std::string_view column, const Variant &key,
                          const Variant &value, std::size_t &count)
    {
        const auto *text = value.getIf<std::string>();
        const std::string_view found = text == nullptr ? std::string_view() : breakIn(*text);
        if (found.empty() || ++count > kMaxValues) return;
        m_findings.push_back(
            {FindingKind::breakingValue, fmt::format("{}.{}", letter.table, column),
             fmt::format("テーブル「{}」の列「{}」の値（{} = {}）に{}があり、委任状が増えるか崩れます。", letter.table,
                         column, letter.key, keyText(key), found)});
    }

    SiteDatabase &m_site;
    Findings &m_findings;
};

/// Adds a finding if only 32-bit programs can look up the connection string's data source or server.
void checkName(const std::string &text, Findings &findings)
{
    const ConnectionParts parts = readConnectionParts(readConnectionString(text));
    const bool isBridge = asciiLower(parts.text(ConnectionPart::provider)).starts_with("msdasql");
    const bool isSource = isBridge || parts.has(ConnectionPart::dataSourceName);
    const bool isNamedAsServer = !parts.has(ConnectionPart::dataSourceName); // also the data source of a bridge
    const std::string name =
        trim(parts.text(isNamedAsServer ? ConnectionPart::server : ConnectionPart::dataSourceName));
    if (!isOnlyFor32BitPrograms(isSource ? ServerName::dataSource : ServerName::alias, name)) return;
    const char *remedy = isSource ? "「ODBC データ ソース（64 ビット）」に同じ名前で登録してください"
                                  : "System32 の cliconfg.exe で同じ別名を登録してください";
    findings.push_back({FindingKind::onlyFor32Bits, "adodb.ini",
                        fmt::format("adodb.ini の{}「{}」は32ビットのプログラム用にしか登録されていないので、使えません"
                                    "（{}）。",
                                    isSource ? "データソース" : "サーバーの別名", name, remedy)});
}

/// Opens the database of a connection string if it is sound; otherwise adds a finding.
std::optional<SiteDatabase> openSound(const fs::path &folder, const std::string &text, Findings &findings)
try {
    SiteDatabase site = openSiteDatabase(folder, text);
    const auto resolvePath = [&folder](const std::string &path) { return dataSourceOf(folder, path); };
    if (sqlite::isSoundSqliteDatabase(text, resolvePath)) return site;
    findings.push_back({FindingKind::damagedDatabase, "adodb.ini",
                        "データベースのファイルが壊れています。控えのファイルに戻してください。"});
    return std::nullopt;
} catch (const RuntimeError &error) {
    findings.push_back({FindingKind::cannotConnect, "adodb.ini",
                        fmt::format("データベースに接続できません。（{}）", error.description())});
    return std::nullopt;
}

} // namespace

void checkDatabase(const fs::path &folder, const std::optional<Branch> &branch, Findings &findings)
{
    const auto text = connectionText(folder, findings);
    if (!text) return;
    checkName(*text, findings);
    auto site = openSound(folder, *text, findings);
    if (!site) return;
    DatabaseCheck check(*site, findings);
    check.checkTables();
    if (branch) check.checkRows(*branch, isThere(folder / kMarkerFile) ? Origin::demo : Origin::practice);
}

} // namespace inin::site

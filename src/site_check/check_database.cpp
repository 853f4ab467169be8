#include "site_check/site_check.h"

#include "adapters/native/native_platform.h"
#include "adapters/sqlite/sqlite_database.h"
#include "adapters/suite/suite_database.h"
#include "demo_site/database_maker.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "suite_text/code_page_932.h"
#include "suite_text/profile_text.h"
#include "system/file_path.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

/// The longest connection string for the suite's buffer of 256 bytes.
constexpr std::size_t kLongestConnection = 255;

/// More findings of one kind in a table would hide the others.
constexpr std::size_t kMaxValues = 50;

/// The connection string in "adodb.ini"; adds a finding if there is none.
std::optional<std::string> connectionText(const fs::path &folder, Findings &findings)
{
    const auto bytes = readSettingsFile(folder / "adodb.ini", "接続情報ファイル「adodb.ini」がありません。", findings);
    if (!bytes) return std::nullopt;
    const std::string name = encodeCp932("接続情報");
    const std::string value = profileString(*bytes, name, name, "", 2 * kLongestConnection);
    if (value.size() > kLongestConnection) {
        findings.push_back(fmt::format("adodb.ini の接続文字列が{}バイトを超えています。", kLongestConnection));
        return std::nullopt;
    }
    const std::string text = rtrim(decodeCp932(value));
    if (text.empty()) {
        findings.push_back("adodb.ini に接続文字列（セクションも項目も「接続情報」）がありません。");
        return std::nullopt;
    }
    return text;
}

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

/// A data source is relative to the site's folder, which is the program's current folder.
std::string pathFrom(const fs::path &folder, const std::string &path)
{
    const std::string real = systemPath(path);
    return isAbsolutePath(real) ? real : systemPath(textOf(folder / pathOf(real)));
}

/// An open database and its checks.
class DatabaseCheck {
public:
    DatabaseCheck(Database &database, Findings &findings)
        : m_database(database), m_connection(database.newConnection()), m_findings(findings)
    {
    }

    void connect(const std::string &connectionString) { m_connection->Open(connectionString, "", "", 0); }

    void checkTables()
    {
        for (const TableColumns &table : schemaTables()) checkTable(table);
    }

    void checkRows(const Branch &branch)
    {
        const std::string where = fmt::format("iKyotenCd = {} AND iKyotenEb = {}", branch.code, branch.subCode);
        checkCount("本社", fmt::format("SELECT nIDNo FROM CORP WHERE {} AND iType = 0", where));
        checkCount("団体請求", fmt::format("SELECT nIDNo FROM CORP WHERE {} AND iType = 3", where));
        checkAgents(branch);
        checkStaff(where);
        for (const LetterColumns &letter : kLetterColumns)
            checkLetterValues(letter, letter.isOfBranch ? " WHERE " + where : std::string());
    }

private:
    std::unique_ptr<Recordset> open(const std::string &sql)
    {
        std::unique_ptr<Recordset> rows = m_database.newRecordset();
        rows->Open(sql, *m_connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
        return rows;
    }

    void checkTable(const TableColumns &table)
    try {
        const std::unique_ptr<Recordset> rows = open("SELECT TOP 1 * FROM " + table.name);
        std::vector<std::string> present;
        for (std::size_t i = 0; i < rows->fieldCount(); ++i) present.push_back(asciiLower(rows->fieldName(i)));
        for (const SchemaColumn &column : table.columns) {
            if (std::ranges::find(present, asciiLower(column.name)) != present.end()) continue;
            m_findings.push_back(fmt::format("テーブル「{}」に列「{}」がありません。", table.name, column.name));
        }
    } catch (const RuntimeError &) {
        m_findings.push_back(fmt::format("テーブル「{}」がありません。", table.name));
    }

    std::int32_t count(const std::string &sql)
    {
        const std::unique_ptr<Recordset> rows = open(sql);
        std::int32_t number = 0;
        for (; !rows->isEndOfFile(); rows->MoveNext()) ++number;
        return number;
    }

    /// Without such a company the letters lack it; with several each letter is repeated.
    void checkCount(std::string_view role, const std::string &sql)
    try {
        const std::int32_t number = count(sql);
        if (number == 1) return;
        m_findings.push_back(
            number == 0 ? fmt::format("この拠点に{}の会社（CORP）がありません。", role)
                        : fmt::format("この拠点に{}の会社（CORP）が{}件あり、委任状が重複します。", role, number));
    } catch (const RuntimeError &) {
        // A missing table or column is already a finding.
    }

    void checkAgents(const Branch &branch)
    try {
        const std::string agents = fmt::format(
            "SELECT RIYOUSHA.nIDNo FROM RIYOUSHA LEFT JOIN CORP ON CORP.iKyotenCd = {0} AND CORP.iKyotenEb = {1}"
            " AND CORP.nIDNo = RIYOUSHA.nDairiID WHERE RIYOUSHA.iKyotenCd = {0} AND RIYOUSHA.iKyotenEb = {1}"
            " AND RIYOUSHA.nDairiID > 0 AND CORP.nIDNo IS NULL",
            branch.code, branch.subCode);
        const std::int32_t number = count(agents);
        if (number > 0)
            m_findings.push_back(fmt::format("代理人（nDairiID）が会社（CORP）にない利用者が{}人います。", number));
    } catch (const RuntimeError &) {
        // As above.
    }

    /// The program's staff list contains active staff only; if it is empty, the screen closes at once.
    void checkStaff(const std::string &where)
    try {
        if (count(fmt::format("SELECT TOP 1 nIDNo FROM STAFF WHERE {} AND (iChusiFlg = 0 OR iChusiFlg IS NULL)",
                              where)) == 0)
            m_findings.push_back("この拠点に施術者（STAFF）がいないので、画面が開きません。");
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
            m_findings.push_back(fmt::format("テーブル「{}」に、委任状が増えるか崩れる値がほかに{}件あります。",
                                             letter.table, count - kMaxValues));
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
            fmt::format("テーブル「{}」の列「{}」の値（{} = {}）に{}があり、委任状が増えるか崩れます。", letter.table,
                        column, letter.key, key.isNull() ? "NULL" : toText(key, Regional{}), found));
    }

    Database &m_database;
    std::unique_ptr<Connection> m_connection;
    Findings &m_findings;
};

} // namespace

void checkDatabase(const fs::path &folder, const std::optional<Branch> &branch, Findings &findings)
{
    const auto text = connectionText(folder, findings);
    if (!text) return;
    const auto resolvePath = [&folder](const std::string &path) { return pathFrom(folder, path); };
    const std::unique_ptr<Database> database = makeSuiteDatabase(resolvePath);
    DatabaseCheck check(*database, findings);
    try {
        check.connect(*text);
        if (!sqlite::isSoundSqliteDatabase(*text, resolvePath)) {
            findings.push_back("データベースのファイルが壊れています。控えのファイルに戻してください。");
            return;
        }
    } catch (const RuntimeError &error) {
        findings.push_back(fmt::format("データベースに接続できません。（{}）", error.description()));
        return;
    }
    check.checkTables();
    if (branch) check.checkRows(*branch);
}

} // namespace inin::site

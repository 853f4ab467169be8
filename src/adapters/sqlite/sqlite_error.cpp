#include "adapters/sqlite/sqlite_error.h"

#include "runtime/utf8.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace inin::sqlite {

namespace {

struct CodeRow {
    int code; ///< SQLite's primary code
    std::int32_t number;
    std::string_view sqlState;
};
constexpr CodeRow kCodes[] = {
    {SQLITE_CONSTRAINT, ado_error::constraint, "23000"},    {SQLITE_BUSY, ado_error::timedOut, "HYT00"},
    {SQLITE_LOCKED, ado_error::timedOut, "HYT00"},          {SQLITE_INTERRUPT, ado_error::timedOut, "HYT00"},
    {SQLITE_MISMATCH, ado_error::faultyStatement, "22018"}, {SQLITE_TOOBIG, ado_error::faultyStatement, "22001"},
    {SQLITE_RANGE, ado_error::faultyStatement, "42000"},
};

/// SQLite has one code for all errors in a statement; the message distinguishes them.
struct MessageRow {
    std::string_view start;
    std::int32_t number;
    std::string_view sqlState;
};
constexpr MessageRow kMessages[] = {
    {"no such table", ado_error::noSuchTable, "42S02"},
    {"no such column", ado_error::faultyStatement, "42S22"},
    {"cannot start a transaction", ado_error::transactionRunning, "25000"},
    {"cannot commit", ado_error::noTransaction, "25000"},
    {"cannot rollback", ado_error::noTransaction, "25000"},
};

/// What the user reads, for the common errors; a row without a start holds for every message of its code.
struct WordsRow {
    int code; ///< SQLite's primary code
    std::string_view start;
    std::string_view words;
};
constexpr WordsRow kWords[] = {
    {SQLITE_ERROR, "no such table", "テーブルがありません。"},
    {SQLITE_ERROR, "no such column", "列がありません。"},
    {SQLITE_BUSY, "", "データベースがほかのプログラムに使われています。"},
    {SQLITE_LOCKED, "", "データベースがほかのプログラムに使われています。"},
    {SQLITE_CONSTRAINT, "", "データの制約に反するため、書き込めません。"},
    {SQLITE_FULL, "", "ディスクの空きがありません。"},
    {SQLITE_READONLY, "", "データベースは読み取り専用です。"},
    {SQLITE_NOTADB, "", "データベースのファイルではありません。"},
    {SQLITE_CORRUPT, "", "データベースが壊れています。"},
    {SQLITE_CANTOPEN, "", "データベースのファイルを開けません。"},
};

constexpr int primaryCode(int code)
{
    return code & 0xFF;
}

} // namespace

std::string shownMessage(int code, std::string_view message)
{
    for (const WordsRow &row : kWords)
        if (row.code == primaryCode(code) && message.starts_with(row.start))
            return fmt::format("{}（{}）", row.words, message);
    return std::string(message);
}

ProviderError providerError(sqlite3 *db, int code)
{
    const int extended = db == nullptr ? code : sqlite3_extended_errcode(db);
    const std::string message = validUtf8(db == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(db));
    ProviderError error = providerError(ado_error::unspecified, "HY000", shownMessage(code, message),
                                        extended == SQLITE_OK ? code : extended);
    const int primary = primaryCode(code);
    for (const CodeRow &row : kCodes) {
        if (row.code != primary) continue;
        error.Number = row.number;
        error.SQLState = row.sqlState;
    }
    if (primary != SQLITE_ERROR) return error;
    error.Number = ado_error::faultyStatement;
    error.SQLState = "42000";
    for (const MessageRow &row : kMessages) {
        if (message.rfind(row.start, 0) != 0) continue;
        error.Number = row.number;
        error.SQLState = row.sqlState;
    }
    return error;
}

ProviderError providerError(std::int32_t number, std::string_view sqlState, std::string description,
                            std::int32_t nativeError)
{
    return {number, std::move(description), "SQLite", std::string(sqlState), nativeError};
}

} // namespace inin::sqlite

#include "adapters/sqlite/sqlite_error.h"

#include "suite_text/japanese_text.h"

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

} // namespace

ProviderError providerError(sqlite3 *db, int code)
{
    const int extended = db == nullptr ? code : sqlite3_extended_errcode(db);
    const std::string message = soundUtf8(db == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(db));
    ProviderError error =
        providerError(ado_error::unspecified, "HY000", message, extended == SQLITE_OK ? code : extended);
    const int primary = code & 0xFF;
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

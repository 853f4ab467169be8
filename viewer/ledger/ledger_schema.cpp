#include "viewer/ledger/ledger_schema.h"

#include <fmt/format.h>

namespace inin::viewer {

namespace {

/// SQLite's mark of a program's own files: "INLD".
constexpr std::int64_t kApplication = 0x494E4C44;

/// Months count from January of the year 0. Times are local, "2026-11-20 10:32:05". A letter's number in its run counts from
/// 0, and first_letter + number is its number in the ledger. `kept_from` is when the retention of a run begins. `good` is the
/// number of confirmed sheets of an output, NULL before the operator's answer. `letters` of a job lists numbers from 1 in
/// the order of the sheets.
constexpr const char *kVersion1 = R"(
CREATE TABLE ledger (number INTEGER NOT NULL, next_letter INTEGER NOT NULL);
CREATE TABLE run (
    id INTEGER PRIMARY KEY AUTOINCREMENT, csv TEXT NOT NULL, form TEXT NOT NULL, title TEXT NOT NULL,
    form_name TEXT NOT NULL, first_month INTEGER NOT NULL, last_month INTEGER NOT NULL, letters INTEGER NOT NULL,
    first_letter INTEGER NOT NULL, columns BLOB NOT NULL, recorded TEXT NOT NULL, kept_from TEXT NOT NULL,
    UNIQUE (csv, form));
CREATE TABLE letter (
    run INTEGER NOT NULL REFERENCES run ON DELETE CASCADE, number INTEGER NOT NULL, person INTEGER NOT NULL,
    address INTEGER NOT NULL, texts BLOB NOT NULL, PRIMARY KEY (run, number)) WITHOUT ROWID;
CREATE TABLE output (
    id INTEGER PRIMARY KEY AUTOINCREMENT, run INTEGER NOT NULL REFERENCES run ON DELETE CASCADE,
    kind INTEGER NOT NULL, printer TEXT NOT NULL, time TEXT NOT NULL, good INTEGER);
CREATE INDEX output_run ON output (run);
CREATE TABLE job (
    output INTEGER NOT NULL REFERENCES output ON DELETE CASCADE, part INTEGER NOT NULL, queue_number TEXT NOT NULL,
    letters TEXT NOT NULL, time TEXT NOT NULL, PRIMARY KEY (output, part)) WITHOUT ROWID;
)";

/// Letters that came back.
constexpr const char *kVersion2 = R"(
CREATE TABLE returned (
    run INTEGER NOT NULL REFERENCES run ON DELETE CASCADE, letter INTEGER NOT NULL, time TEXT NOT NULL,
    PRIMARY KEY (run, letter)) WITHOUT ROWID;
)";

constexpr const char *kSteps[] = {kVersion1, kVersion2};
static_assert(std::size(kSteps) == kLedgerVersion);

std::int64_t pragma(LedgerDatabase &database, const char *sql)
{
    LedgerStatement statement(database, sql);
    return statement.step() ? statement.integer(0) : 0;
}

bool isEmpty(LedgerDatabase &database)
{
    return pragma(database, "SELECT count(*) FROM sqlite_schema") == 0;
}

} // namespace

SchemaResult prepareSchema(LedgerDatabase &database, std::uint32_t number)
{
    const auto version = [&] { return pragma(database, "PRAGMA user_version"); };
    const auto isLedger = [&] { return pragma(database, "PRAGMA application_id") == kApplication; };
    if (isLedger() && version() >= kLedgerVersion)
        return version() == kLedgerVersion ? SchemaResult::ready : SchemaResult::newer;
    LedgerTransaction change(database, LedgerTransaction::Kind::writing);
    // Another program may have been faster.
    const bool isNew = isEmpty(database);
    if (!isNew && !isLedger()) return SchemaResult::foreign;
    for (std::int64_t step = version(); step < kLedgerVersion; ++step) database.execute(kSteps[step]);
    if (isNew) LedgerStatement(database, "INSERT INTO ledger VALUES (?, 1)").bind(std::int64_t{number}).run();
    database.execute(fmt::format("PRAGMA application_id = {}", kApplication).c_str());
    database.execute(fmt::format("PRAGMA user_version = {}", kLedgerVersion).c_str());
    change.commit();
    return SchemaResult::ready;
}

} // namespace inin::viewer

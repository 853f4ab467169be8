// What a database driver answers, for SQL Server as for files of the Jet engine: descriptions of columns, values and
// error records. The drivers read the bytes of servers and of Jet files; a damaged file or a hostile server shows here.
// Then the statements that the driver for Jet files gets.

#include "adapters/database/sql_tokenizer.h"
#include "adapters/odbc/column.h"
#include "adapters/odbc/diagnostics.h"
#include "adapters/odbc/mdb_driver.h"
#include "adapters/odbc/odbc_api.h"
#include "fuzz/fuzz_input.h"
#include "runtime/utf8.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::odbc;
using inin::fuzz::require;

namespace {

constexpr std::int16_t kTypes[] = {SQL_BIT,       SQL_TINYINT,     SQL_SMALLINT, SQL_INTEGER,   SQL_BIGINT,
                                   SQL_REAL,      SQL_FLOAT,       SQL_DECIMAL,  SQL_NUMERIC,   SQL_TYPE_TIMESTAMP,
                                   SQL_TYPE_DATE, SQL_TYPE_TIME,   SQL_GUID,     SQL_CHAR,      SQL_WCHAR,
                                   SQL_VARCHAR,   SQL_LONGVARCHAR, SQL_BINARY,   SQL_VARBINARY, SQL_LONGVARBINARY};

/// Text is UTF-8, a date is one of the runtime's calendar, and no value is larger than its bytes allow.
void requireValue(const Variant &value, std::size_t bytes)
{
    constexpr std::size_t kLongestDate = 20, kBytesPerUnit = 3;
    if (const auto *text = value.getIf<std::string>()) {
        require(text->size() <= kLongestDate + kBytesPerUnit * bytes, "a text is as long as its bytes");
        require(validUtf8(*text) == *text, "a text is UTF-8");
    } else if (const auto *date = value.getIf<Date>()) {
        require(std::isfinite(date->days()), "a date is a day");
    } else if (const auto *binary = value.getIf<Binary>()) {
        require(binary->size() == bytes, "bytes are taken as they are");
    }
    require(!value.isNull() && !value.isEmpty(), "a cell that is not NULL has a value");
}

/// A type, the column's size and its digits, then a value; the buffer has no byte more than the driver has to fill.
void checkValue(std::string_view input)
{
    const std::int16_t type = kTypes[fuzz::takeChoice(input, std::size(kTypes))];
    const std::size_t size = fuzz::takeChoice(input, 256) * fuzz::takeChoice(input, 256);
    const auto digits = static_cast<std::int16_t>(fuzz::takeChoice(input, 5));
    OdbcColumn column = describeColumn("n", type, size, digits, "money");
    const auto *const first = static_cast<const std::byte *>(static_cast<const void *>(input.data()));
    const std::vector<std::byte> whole(first, first + input.size());
    std::vector<std::byte> cell = whole;
    cell.resize(column.width);
    if (!column.isLong()) requireValue(valueOf(column, cell.data(), cell.size()), cell.size());
    column.width = 0;
    for (const OdbcColumn &fetched : {column, mdbColumn(column)}) try {
            requireValue(valueOf(fetched, whole.data(), whole.size()), whole.size());
        } catch (const RuntimeError &) {
            continue; // shorter than its type, or a time that no day has
        }
}

/// Lines with a state, a number and a message each; the password may be part of any message.
void checkRecords(std::string_view input)
{
    constexpr std::string_view kSecret = "s3cretValue";
    constexpr Failure kFailures[] = {Failure::statement, Failure::logIn, Failure::lostConnection};
    const Failure failure = kFailures[fuzz::takeChoice(input, std::size(kFailures))];
    std::vector<DiagnosticRecord> records;
    while (!input.empty()) {
        const std::string_view line = fuzz::takePart(input);
        DiagnosticRecord record;
        record.sqlState = line.substr(0, 5);
        record.native = static_cast<std::int32_t>(line.size());
        record.message = line.substr(std::min<std::size_t>(5, line.size()));
        if (line.ends_with('p')) record.message.insert(record.message.size() / 2, kSecret);
        records.push_back(record);
    }
    std::vector<ProviderError> errors;
    std::string text;
    try {
        raiseRecords(errors, records, {std::string(kSecret), "pw"}, failure);
    } catch (const RuntimeError &error) {
        require(error.number() != 0, "a failure has a number");
        text = error.description();
    }
    require(errors.size() == std::max<std::size_t>(records.size(), 1), "each record is an error");
    for (const ProviderError &error : errors) text += error.Description;
    require(text.find(kSecret) == std::string::npos, "no message shows a password");
    (void)tellsLostConnection(records);
}

void checkStatement(std::string_view input)
{
    const MdbStatement statement = mdbStatement(input);
    const std::vector<Token> tokens = tokenizeSql(input);
    const auto isFaulty = [](const Token &token) { return token.kind == TokenKind::invalid || token.isSymbol("]"); };
    if (!statement.problem.empty() || std::ranges::any_of(tokens, isFaulty)) return;
    const MdbStatement again = mdbStatement(statement.text);
    require(again.problem.empty() && again.text == statement.text, "a name is put into brackets once");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkValue, checkRecords, checkStatement}, data, size);
}

#include "adapters/odbc/column.h"

#include "adapters/odbc/odbc_api.h"
#include "platform/database.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>

namespace inin::odbc {

namespace {

// SQL Server types that the ODBC headers do not define.
constexpr std::int16_t kSqlVariant = -150, kSqlXml = -152;

/// A column of more characters is treated as long. This is the server's limit for a column that is not (max).
constexpr std::size_t kLongestText = 8000;
constexpr std::size_t kLongestBytes = 8000;
/// Digits, sign, decimal point and a leading zero.
constexpr std::size_t kDecimalExtra = 4;
constexpr std::size_t kGuidWidth = 37;

struct TypeRow {
    std::int16_t sqlType;
    std::int32_t adoType;
    ColumnForm form;
    std::int16_t cType;
    std::size_t width; ///< 0: derived from the column size
    bool isLong = false;
};
constexpr TypeRow kTypes[] = {
    {SQL_BIT, 11, ColumnForm::bit, SQL_C_BIT, 1},
    {SQL_TINYINT, 17, ColumnForm::smallInteger, SQL_C_SSHORT, sizeof(SQLSMALLINT)},
    {SQL_SMALLINT, 2, ColumnForm::smallInteger, SQL_C_SSHORT, sizeof(SQLSMALLINT)},
    {SQL_INTEGER, 3, ColumnForm::integer, SQL_C_SLONG, sizeof(SQLINTEGER)},
    {SQL_BIGINT, 20, ColumnForm::bigInteger, SQL_C_SBIGINT, sizeof(SQLBIGINT)},
    {SQL_REAL, 4, ColumnForm::single, SQL_C_FLOAT, sizeof(SQLREAL)},
    {SQL_FLOAT, 5, ColumnForm::number, SQL_C_DOUBLE, sizeof(SQLDOUBLE)},
    {SQL_DOUBLE, 5, ColumnForm::number, SQL_C_DOUBLE, sizeof(SQLDOUBLE)},
    {SQL_DECIMAL, 131, ColumnForm::decimal, SQL_C_CHAR, 0},
    {SQL_NUMERIC, 131, ColumnForm::decimal, SQL_C_CHAR, 0},
    {SQL_TYPE_TIMESTAMP, 135, ColumnForm::moment, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)},
    {SQL_TIMESTAMP, 135, ColumnForm::moment, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)},
    {SQL_TYPE_DATE, 133, ColumnForm::day, SQL_C_TYPE_DATE, sizeof(SQL_DATE_STRUCT)},
    {SQL_TYPE_TIME, 134, ColumnForm::time, SQL_C_TYPE_TIME, sizeof(SQL_TIME_STRUCT)},
    {SQL_GUID, 72, ColumnForm::guid, SQL_C_CHAR, kGuidWidth},
    {SQL_CHAR, 129, ColumnForm::text, SQL_C_WCHAR, 0},
    {SQL_VARCHAR, 200, ColumnForm::text, SQL_C_WCHAR, 0},
    {SQL_WCHAR, 130, ColumnForm::text, SQL_C_WCHAR, 0},
    {SQL_WVARCHAR, 202, ColumnForm::text, SQL_C_WCHAR, 0},
    {SQL_LONGVARCHAR, 201, ColumnForm::text, SQL_C_WCHAR, 0, true},
    {SQL_WLONGVARCHAR, 203, ColumnForm::text, SQL_C_WCHAR, 0, true},
    {kSqlXml, 203, ColumnForm::text, SQL_C_WCHAR, 0, true},
    {kSqlVariant, 203, ColumnForm::text, SQL_C_WCHAR, 0, true},
    {SQL_BINARY, 128, ColumnForm::bytes, SQL_C_BINARY, 0},
    {SQL_VARBINARY, 204, ColumnForm::bytes, SQL_C_BINARY, 0},
    {SQL_LONGVARBINARY, 205, ColumnForm::bytes, SQL_C_BINARY, 0, true},
};

/// Types that are not listed (for example a time with a zone) are read as text.
constexpr TypeRow kUnknownType{0, 202, ColumnForm::text, SQL_C_WCHAR, 0};

/// 0 for a long column. Drivers report the size of nvarchar(max) as 0.
std::size_t widthOf(const TypeRow &type, std::size_t size)
{
    if (type.width != 0 || type.isLong) return type.width;
    if (type.form == ColumnForm::decimal) return std::min<std::size_t>(size, kLongestText) + kDecimalExtra;
    if (type.form == ColumnForm::bytes) return size > kLongestBytes ? 0 : size;
    // The size may be in characters, and a character outside the BMP takes two units; one more for the NUL.
    return size == 0 || size > kLongestText ? 0 : (2 * size + 1) * sizeof(SQLWCHAR);
}

template <class T> T read(const std::byte *cell)
{
    T value;
    std::memcpy(&value, cell, sizeof value);
    return value;
}

std::string_view chars(const std::byte *cell, std::size_t length)
{
    return {static_cast<const char *>(static_cast<const void *>(cell)), length};
}

Variant bigInteger(std::int64_t value)
{
    if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(value);
    return static_cast<double>(value);
}

/// Convert by way of the shortest decimal text: 0.1 as a single must become 0.1 as a double, not 0.10000000149.
double singleValue(float value)
{
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    double result = value;
    (void)std::from_chars(digits.data(), written.ptr, result); // infinity and NaN stay as they are
    return result;
}

Variant decimalValue(std::string_view digits)
{
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) return validUtf8(digits);
    return value;
}

/// A year outside the range of the runtime's dates stays text.
Variant dateOrText(const DateParts &parts, double secondFraction)
{
    constexpr double kSecondsPerDay = 86400;
    if (!isRealDay(parts)) return fmt::format("{:04}-{:02}-{:02}", parts.year, parts.month, parts.day);
    const double days = dateOf(parts).days();
    const double fraction = secondFraction / kSecondsPerDay;
    return Date(days < 0 ? days - fraction : days + fraction);
}

Variant momentValue(const SQL_TIMESTAMP_STRUCT &value)
{
    constexpr double kNanoseconds = 1e9;
    return dateOrText({value.year, value.month, value.day, value.hour, value.minute, value.second},
                      value.fraction / kNanoseconds);
}

Variant timeValue(const SQL_TIME_STRUCT &value)
{
    return Date((value.hour * 3600 + value.minute * 60 + value.second) / 86400.0);
}

/// As ADO writes one: in braces and upper case.
std::string guidText(std::string_view digits)
{
    std::string text = "{";
    for (const char c : digits) text += c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    return validUtf8(text + "}");
}

/// Whether so many bytes are a value of the type; texts and bytes have any length.
bool isWhole(ColumnForm form, std::size_t length)
{
    switch (form) {
    case ColumnForm::smallInteger:
        return length >= sizeof(SQLSMALLINT);
    case ColumnForm::integer:
        return length >= sizeof(SQLINTEGER);
    case ColumnForm::bigInteger:
        return length >= sizeof(SQLBIGINT);
    case ColumnForm::bit:
        return length >= 1;
    case ColumnForm::single:
        return length >= sizeof(SQLREAL);
    case ColumnForm::number:
        return length == sizeof(SQLREAL) || length >= sizeof(SQLDOUBLE);
    case ColumnForm::moment:
        return length >= sizeof(SQL_TIMESTAMP_STRUCT);
    case ColumnForm::day:
        return length >= sizeof(SQL_DATE_STRUCT);
    case ColumnForm::time:
        return length >= sizeof(SQL_TIME_STRUCT);
    default:
        return true;
    }
}

std::string textValue(const std::byte *cell, std::size_t length)
{
    std::u16string text(length / sizeof(char16_t), u'\0');
    if (!text.empty()) std::memcpy(text.data(), cell, text.size() * sizeof(char16_t));
    return utf8FromUtf16(text);
}

} // namespace

OdbcColumn describeColumn(std::string name, std::int16_t sqlType, std::size_t size, std::int16_t digits,
                          std::string_view typeName)
{
    constexpr std::int32_t kCurrency = 6;
    const auto *const found = std::ranges::find(kTypes, sqlType, &TypeRow::sqlType);
    const TypeRow &type = found == std::end(kTypes) ? kUnknownType : *found;
    const std::string lower = asciiLower(typeName);
    const bool isMoney = digits == 4 && (lower == "money" || lower == "smallmoney");
    return {std::move(name), isMoney ? kCurrency : type.adoType, type.form, type.cType, widthOf(type, size)};
}

Variant valueOf(const OdbcColumn &column, const std::byte *cell, std::size_t length)
{
    // The cell of a bound column has its full width, whatever length the driver wrote.
    if (column.isLong() && !isWhole(column.form, length))
        throw RuntimeError(ado_error::unspecified, "the column " + column.name + " holds less than its type needs");
    switch (column.form) {
    case ColumnForm::smallInteger:
        return length == sizeof(SQLINTEGER) ? static_cast<std::int16_t>(read<SQLINTEGER>(cell))
                                            : read<std::int16_t>(cell);
    case ColumnForm::integer:
        return static_cast<std::int32_t>(read<SQLINTEGER>(cell));
    case ColumnForm::bigInteger:
        return bigInteger(read<SQLBIGINT>(cell));
    case ColumnForm::bit: // in ADO, True is -1 as a number
        return static_cast<std::int16_t>(*cell == std::byte{0} ? 0 : -1);
    case ColumnForm::single:
        return singleValue(read<float>(cell));
    case ColumnForm::number: // a driver that returns a single here shows it by the length
        return length == sizeof(float) ? singleValue(read<float>(cell)) : read<double>(cell);
    case ColumnForm::decimal:
        return decimalValue(chars(cell, length));
    case ColumnForm::moment:
        return momentValue(read<SQL_TIMESTAMP_STRUCT>(cell));
    case ColumnForm::day: {
        const auto day = read<SQL_DATE_STRUCT>(cell);
        return dateOrText({day.year, day.month, day.day, 0, 0, 0}, 0);
    }
    case ColumnForm::time:
        return timeValue(read<SQL_TIME_STRUCT>(cell));
    case ColumnForm::guid:
        return guidText(chars(cell, length));
    case ColumnForm::bytes:
        return Binary(cell, cell + length);
    case ColumnForm::utf8Text:
        return validUtf8(chars(cell, length)); // truncated text may end within a character
    case ColumnForm::text:
        break;
    }
    return textValue(cell, length);
}

} // namespace inin::odbc

#include "data/csv_rows.h"

#include "common/binary_literal.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"

#include <string_view>
#include <utility>

namespace inin {

namespace {

constexpr std::size_t kMaxFields = 257;
constexpr const char *kBranchColumn = "拠点名";

/// ADO's type codes from first to last; every other one is a character type.
struct TypeRange {
    std::int32_t first;
    std::int32_t last;
    CsvCell kind;
};
constexpr TypeRange kTypeRanges[] = {
    {2, 6, CsvCell::number},     // whole and floating numbers, currency
    {7, 7, CsvCell::date},       // date
    {11, 11, CsvCell::number},   // boolean
    {14, 14, CsvCell::number},   // decimal
    {16, 21, CsvCell::number},   // integers of other sizes
    {131, 131, CsvCell::number}, // numeric
    {133, 135, CsvCell::date},   // date, time, date and time
    {139, 139, CsvCell::number}, // numeric of variable length
};

CsvCell kindOfType(std::int32_t type)
{
    for (const TypeRange &range : kTypeRanges)
        if (type >= range.first && type <= range.last) return range.kind;
    return CsvCell::text;
}

/// A quote inside is not doubled, as in every CSV file of the suite; a line end is kept as well.
std::string inQuotes(std::string_view text)
{
    return std::string("\"").append(text).append("\"");
}

/// In the notation of a statement, because bytes have no text form.
std::string binaryText(const Binary &bytes)
{
    std::string text = "0x";
    for (const std::byte byte : bytes) {
        const char single = static_cast<char>(byte);
        appendHex(text, {&single, 1});
    }
    return text;
}

std::string joined(const std::vector<std::string> &cells)
{
    std::string line;
    for (std::size_t index = 0; index < cells.size(); ++index) {
        if (index > 0) line += ',';
        line += cells[index];
    }
    return line;
}

} // namespace

CsvRows::CsvRows(Recordset &rsData, const Regional &regional, std::optional<std::string> cKyoten)
    : m_rsData(rsData), m_regional(regional), m_cKyoten(std::move(cKyoten))
{
    const std::size_t count = rsData.fieldCount();
    if (count > kMaxFields) throw RuntimeError(error_number::subscript);
    // A second export of the same rows starts at the first row again.
    if (rsData.RecordCount() > 0) rsData.MoveFirst();
    for (std::size_t index = 0; index < count; ++index) m_kinds.push_back(kindOfType(rsData.fieldType(index)));
}

std::string CsvRows::headingLine() const
{
    std::vector<std::string> cells;
    for (std::size_t index = 0; index < m_kinds.size(); ++index) cells.push_back(inQuotes(m_rsData.fieldName(index)));
    if (m_cKyoten) cells.push_back(inQuotes(kBranchColumn));
    return joined(cells);
}

std::string CsvRows::nextLine()
{
    std::vector<std::string> cells;
    for (std::size_t index = 0; index < m_kinds.size(); ++index) cells.push_back(cell(index));
    if (m_cKyoten) cells.push_back(inQuotes(*m_cKyoten));
    m_rsData.MoveNext();
    return joined(cells);
}

std::string CsvRows::cell(std::size_t index) const
{
    const Variant value = m_rsData.Value(index);
    if (value.isNull()) return {};
    if (const auto *bytes = value.getIf<Binary>()) return binaryText(*bytes);
    // A date has its default text in the short date format, as everywhere in the suite.
    const std::string text = toText(value, m_regional);
    return m_kinds[index] == CsvCell::text ? inQuotes(text) : text;
}

} // namespace inin

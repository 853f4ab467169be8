#include "data/jet_db_to_csv.h"

#include "common/binary_literal.h"
#include "common/text_file.h"
#include "data/connection_settings.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "shell/error_box.h"

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

/// Deliberate: the opening with two statements also reports errors under this name.
constexpr const char *kOpeningHeading = "iInitJ2C() でエラー";

std::string headingOf(const std::string &operation)
{
    return operation + "() でエラー";
}

/// The number of rows, counted by moving to the last row, which every provider supports; the first row is current
/// afterwards.
std::int32_t counted(Recordset &rsData)
{
    if (rsData.isEndOfFile()) return 0;
    rsData.MoveLast();
    rsData.MoveFirst();
    return rsData.RecordCount();
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

cls_JetDB2CSV::~cls_JetDB2CSV()
{
    static_cast<void>(iEndJ2C()); // a failure has already been shown
}

std::int16_t cls_JetDB2CSV::iInitJ2C(const std::string &csSql, const std::string &csOutCsvFile, std::int32_t &nRecSuu)
{
    return init(csOutCsvFile, {csSql}, nRecSuu);
}

std::int16_t cls_JetDB2CSV::iInitJ2C_WSQL(const std::string &csSql1, const std::string &csSql2,
                                          const std::string &csOutCsvFile, std::int32_t &nRecSuu)
{
    return init(csOutCsvFile, {csSql1, csSql2}, nRecSuu);
}

std::int16_t cls_JetDB2CSV::init(const std::string &csOutCsvFile, std::initializer_list<std::string> statements,
                                 std::int32_t &nRecSuu)
try {
    drop();
    m_outCsvFile = csOutCsvFile;
    StartedSession started = startSession(m_app, kOpeningHeading);
    if (!started.isConnected()) return iBad;
    m_session = std::move(started.session);
    std::int32_t rows = 0;
    auto place = m_recordsets.begin();
    for (const std::string &sql : statements) {
        if (!open(kOpeningHeading, sql, *place)) {
            drop();
            return iBad;
        }
        rows += counted(**place++);
    }
    nRecSuu = rows;
    return iGood;
} catch (const RuntimeError &error) {
    headingBox(m_app, kOpeningHeading, numberedText(error));
    drop();
    return iBad;
}

bool cls_JetDB2CSV::open(const std::string &heading, const std::string &sql, std::unique_ptr<Recordset> &rsData)
{
    rsData = m_app.platform.database.newRecordset();
    rsData->setCursorLocation(adUseClient);
    if (m_session->iOpenRecSet(*rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText) == iGood) return true;
    headingBox(m_app, heading, m_session->sErrMsg());
    return false;
}

std::int16_t cls_JetDB2CSV::iExecJ2C(Midasi b1stMidasiAri)
{
    return exec("iExecJ2C", 1, b1stMidasiAri, {}) < 0 ? iBad : iGood;
}

std::int32_t cls_JetDB2CSV::nExecJ2C(Midasi b1stMidasiAri, const std::optional<std::string> &cKyoten)
{
    return exec("nExecJ2C", 1, b1stMidasiAri, cKyoten);
}

std::int32_t cls_JetDB2CSV::nExecJ2C_WSQL(Midasi b1stMidasiAri)
{
    return exec("nExecJ2C_WSQL", 2, b1stMidasiAri, {});
}

std::int32_t cls_JetDB2CSV::exec(const std::string &operation, std::size_t statements, Midasi b1stMidasiAri,
                                 const std::optional<std::string> &cKyoten)
try {
    // Checked before the file is opened, which would truncate the file of an earlier run.
    for (std::size_t index = 0; index < statements; ++index)
        if (!m_recordsets[index]) throw RuntimeError(error_number::objectNotSet);
    TextOutput csv(m_app.platform, m_outCsvFile);
    std::int32_t rows = 0;
    for (std::size_t index = 0; index < statements; ++index) {
        CsvRows lines(*m_recordsets[index], m_app.regional, cKyoten);
        if (index == 0 && b1stMidasiAri == Midasi::ari) csv.printLine(lines.headingLine());
        for (; !lines.isEndOfFile(); ++rows) csv.printLine(lines.nextLine());
    }
    csv.close();
    return rows;
} catch (const RuntimeError &error) {
    headingBox(m_app, headingOf(operation), numberedText(error));
    return iBad;
}

std::int16_t cls_JetDB2CSV::iEndJ2C()
{
    std::int16_t status = iGood;
    const auto report = [&](std::int16_t ended) {
        if (ended == iGood) return;
        headingBox(m_app, headingOf("iEndJ2C"), m_session->sErrMsg());
        status = iBad;
    };
    for (std::unique_ptr<Recordset> &rsData : m_recordsets)
        if (rsData) report(m_session->iCloseRecSet(rsData));
    if (m_session) report(m_session->iDisConnect());
    drop();
    return status;
}

/// Releases everything without reporting; a second end has nothing to close.
void cls_JetDB2CSV::drop()
{
    for (std::unique_ptr<Recordset> &rsData : m_recordsets) rsData.reset();
    m_session.reset();
}

} // namespace inin

#include "data/jet_db_to_csv.h"

#include "common/text_file.h"
#include "data/connection_settings.h"
#include "data/csv_rows.h"
#include "shell/error_box.h"

#include <utility>

namespace inin {

namespace {

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

#include "master/tariff_session.h"

#include "master/table_contract.h"
#include "runtime/text.h"
#include "shell/error_box.h"

namespace inin {

namespace {

/// Year and month of a date column as six digits. The conversion keeps a text unchanged, so that its seventh character
/// is the second digit of the month.
std::string monthOf(const std::string &column)
{
    const std::string text = "CONVERT(VARCHAR, " + column + ", 112)";
    return "SUBSTRING(" + text + ",1,4)+SUBSTRING(" + text + ",6,2)";
}

} // namespace

std::string monthStatement(const std::string &table, const std::string &csYM, const std::string &order)
{
    return "SELECT * FROM " + table + " WHERE " + monthOf("cStartDate") + " <=   '" + csYM + "' AND " +
           monthOf("cEndDate") + " >=   '" + csYM + "' ORDER BY " + order;
}

void showTariffError(App &app, const std::string &text, const std::string &kubun, const std::string &code)
{
    app.platform.boxes.show(text + std::string(kCr) + "区分:" + kubun + "  コード：" + code, Icon::critical,
                            "DB Read Error!!");
}

bool TariffSession::walk(const std::string &sql, const std::function<void()> &onOpened,
                         const std::function<void(const Recordset &)> &onRow)
{
    m_own = startSession(m_app, m_heading);
    if (!m_own.isConnected()) return false;
    TableSession table(m_app, {});
    table.init(*m_own.session);
    try {
        if (table.walk(sql, onOpened, onRow) == iGood) return true;
    } catch (const RuntimeError &) {
        disconnect();
        throw;
    }
    headingBox(m_app, m_heading, table.sErrMsg());
    disconnect();
    return false;
}

void TariffSession::disconnect()
{
    static_cast<void>(m_own.session->iDisConnect()); // the rows are already read
}

} // namespace inin

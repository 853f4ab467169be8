#pragma once

#include "data/connection_settings.h"

#include <functional>
#include <string>

namespace inin {

// What the classes of fees share: each reads its own table on a session of its own and tells every failure on the
// screen, never to its caller.

/// The rows of a table whose validity encloses the month, six digits. The table's dates are texts YYYY/MM/DD, and texts
/// are what is compared.
[[nodiscard]] std::string monthStatement(const std::string &table, const std::string &csYM, const std::string &order);

/// The critical box of a run-time error: text, CR, "区分:", class, "  コード：", code.
void showTariffError(App &app, const std::string &text, const std::string &kubun = {}, const std::string &code = {});

/// The session of one reading.
class TariffSession {
public:
    /// `operation` heads the boxes of what fails before the rows come.
    TariffSession(App &app, const std::string &operation) : m_app(app), m_heading(operation + "() でエラー") {}

    /// Connects, opens the statement and hands on row by row; `onOpened` runs before the first row. False after a
    /// failure that was shown. A run-time error disconnects and goes on to the caller.
    [[nodiscard]] bool walk(const std::string &sql, const std::function<void()> &onOpened,
                            const std::function<void(const Recordset &)> &onRow);
    void disconnect();

private:
    App &m_app;
    std::string m_heading;
    StartedSession m_own;
};

} // namespace inin

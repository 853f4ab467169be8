#pragma once

#include "data/connection_settings.h"

#include <functional>
#include <string>

namespace inin {

// The common part of the fee classes: each reads its own table on a session of its own and shows every failure instead
// of returning it.

/// Selects the rows whose validity includes the month, six digits. The table's dates are texts YYYY/MM/DD and are
/// compared as texts.
[[nodiscard]] std::string monthStatement(const std::string &table, const std::string &csYM, const std::string &order);

/// The critical box of a run-time error: text, CR, "区分:", class, " コード：", code.
void showTariffError(App &app, const std::string &text, const std::string &kubun = {}, const std::string &code = {});

/// The session of one read.
class TariffSession {
public:
    /// `operation` is the heading of a failure before the first row.
    TariffSession(App &app, const std::string &operation) : m_app(app), m_heading(operation + "() でエラー") {}

    /// Connects, opens the statement and passes on each row; `onOpened` runs before the first row. False after a
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

#pragma once

#include "data/ado_session.h"

#include <memory>
#include <string>

namespace inin {

inline constexpr const char *kNoConnectionText = "接続文字列取得できません。";

/// The last step that the start of a session reached, for callers whose messages depend on it.
enum class ConnectStep { settingsFile, emptyText, sessionInit, connect, connected };

/// The result of a start: a connected session, or the failed step with its error text.
struct StartedSession {
    ConnectStep step = ConnectStep::settingsFile;
    /// Set from step sessionInit on, even if the connect failed.
    std::unique_ptr<cT_ADODB> session;
    /// Error text, to be shown under the caller's own heading.
    std::string csErrMsg;
    [[nodiscard]] bool isConnected() const { return step == ConnectStep::connected; }
};

/// The start of all database work: reads the connection string from "adodb.ini" anew and opens a session. Shows
/// nothing.
[[nodiscard]] StartedSession startSession(App &app);

/// The same, and shows a failure in a critical box: heading, CR LF, text.
[[nodiscard]] StartedSession startSession(App &app, const std::string &heading);

} // namespace inin

#pragma once

#include "data/ado_session.h"

#include <memory>
#include <string>

namespace inin {

inline constexpr const char *kNoConnectionText = "接続文字列取得できません。";

/// How far the connection preamble came. A unit that reports its steps in different words asks for the step.
enum class ConnectStep { settingsFile, emptyText, sessionInit, connect, connected };

/// What the preamble left: a connected session, or the step that failed with its words.
struct StartedSession {
    ConnectStep step = ConnectStep::settingsFile;
    /// Set from step sessionInit on, also when the connect failed.
    std::unique_ptr<cT_ADODB> session;
    /// Words of the failure, to be shown under the unit's own heading.
    std::string csErrMsg;
    [[nodiscard]] bool isConnected() const { return step == ConnectStep::connected; }
};

/// The one way in which all database work begins: reads the connection string from "adodb.ini" anew, opens a session.
/// Shows nothing.
[[nodiscard]] StartedSession startSession(App &app);

/// The same, and a failure is shown as a critical box: heading, CR LF, words.
[[nodiscard]] StartedSession startSession(App &app, const std::string &heading);

} // namespace inin

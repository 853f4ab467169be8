#include "data/connection_settings.h"

#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "runtime/text.h"
#include "shell/error_box.h"

namespace inin {

namespace {
/// Section and key have the same name.
constexpr const char *kConnectionKey = "接続情報";
} // namespace

StartedSession startSession(App &app)
{
    clsOplIniFile file(app.platform);
    if (file.iInit(app.platform.files.applicationFolder() + "\\adodb.ini") != iGood)
        return {ConnectStep::settingsFile, nullptr, file.csErrMsg};
    const std::string text = rtrim(csCutNul(file.csGetProfileString(kConnectionKey, kConnectionKey)));
    if (text.empty()) return {ConnectStep::emptyText, nullptr, kNoConnectionText};

    StartedSession started{ConnectStep::sessionInit, std::make_unique<cT_ADODB>(app), {}};
    if (started.session->iInit(text) != iGood) {
        started.csErrMsg = started.session->sErrMsg();
        return started;
    }
    started.step = ConnectStep::connect;
    if (started.session->iConnect() != iGood) {
        started.csErrMsg = started.session->sErrMsg();
        return started;
    }
    started.step = ConnectStep::connected;
    return started;
}

StartedSession startSession(App &app, const std::string &heading)
{
    StartedSession started = startSession(app);
    if (!started.isConnected()) headingBox(app, heading, started.csErrMsg);
    return started;
}

} // namespace inin

#include "printing/form_document_choice.h"

#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "data/ado_session.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "shell/settings.h"

namespace inin {

namespace {

constexpr const char *kFormatFile = "帳票Format.ini";
constexpr const char *kFormReport = "委任状";

std::string documentOfKind(std::int16_t iPrintKind)
{
    switch (iPrintKind) {
    case 1:
        return "委任状23.wfd";
    case 2:
        return "委任状37_高松市.wfd";
    default:
        return "委任状37_01.wfd";
    }
}

} // namespace

std::string csGetFormatFile(App &app, const std::string &csSection, const std::string &csKey)
try {
    clsOplIniFile formatFile(app.platform);
    if (formatFile.iInit(csDataDir(app) + kFormatFile) == iBad) return {};
    return rtrim(csCutNul(formatFile.csGetProfileString(csSection, csKey)));
} catch (const RuntimeError &error) {
    app.platform.boxes.show("Error:" + error.description(), Icon::none);
    return {};
}

/// The entry replaces only the form document: the query still depends on iPrintKind, so that report kind 1 prints a
/// single letter on the other form too.
std::string formDocument(App &app, std::int16_t iPrintKind)
{
    const std::string entry = csGetFormatFile(app, kFormReport, kFormReport);
    return entry.empty() ? documentOfKind(iPrintKind) : entry;
}

} // namespace inin

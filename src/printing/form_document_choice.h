#pragma once

#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

/// The entry of "帳票Format.ini" in the data folder: the name of another form document, empty without file or entry. A
/// run-time error shows a box and gives the empty text, so that the run uses the form of the report kind.
[[nodiscard]] std::string csGetFormatFile(App &app, const std::string &csSection, const std::string &csKey);

/// The file name of the form document of a run: the entry in "帳票Format.ini" replaces that of every report kind.
[[nodiscard]] std::string formDocument(App &app, std::int16_t iPrintKind);

} // namespace inin

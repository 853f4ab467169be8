#pragma once

#include "shell/app.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace inin {

/// The page that the menus open.
inline constexpr std::int16_t kFirstHelpPage = 1;

/// Opens the suite's web help at a page in the default browser. Address, user and password are read at each call; the
/// address with its query is passed to the browser only and written nowhere.
void vDispHelp(App &app, std::int16_t iPage);
/// Reads the address from "Sorvin.Ver" into csHelpUrl, the empty text if it is not a web address: 0, or -1 without the
/// file. A run-time error shows a box, leaves csHelpUrl unchanged and gives 0.
[[nodiscard]] std::int16_t iGetHelpAddress(App &app);
/// Fills user and password from "EmapUser.ini" if their keys exist: 1, or -1 on any run-time error.
[[nodiscard]] std::int16_t iGetEmapUser(App &app, std::string &csUser, std::string &csPwd);

/// The characters in reverse order; a character beyond 16 bits is kept intact.
[[nodiscard]] std::string reversedCharacters(std::string_view text);

} // namespace inin

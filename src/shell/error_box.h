#pragma once

#include "common/error_text.h"
#include "runtime/runtime_error.h"
#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

/// The task name that every caller of the central error box passes.
inline constexpr const char *kErrorBoxTask = "メンテナンス処理";

/// The central error box: shows number, text, form and procedure, and changes nothing.
void vErrorBox(App &app, std::int32_t nErrNo, const std::string &csErrText, const std::string &csTitle,
               const std::string &csFormName, const std::string &csFuncName);
void vErrorBox(App &app, const RuntimeError &error, const std::string &csTitle, const std::string &csFormName,
               const std::string &csFuncName);

/// A critical box without a title: heading, CR LF, text.
void headingBox(App &app, const std::string &heading, const std::string &text);

} // namespace inin

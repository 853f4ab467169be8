#pragma once

#include "viewer/layout/letter_layout.h"

#include <string>

namespace inin::viewer {

/// The columns of a marked field, such as "保険者名、利用者氏名".
[[nodiscard]] std::string columnNames(const LetterLayout &layout, const FieldMark &mark);
/// The problem of a field in one sentence, without the columns' names.
[[nodiscard]] std::string markText(const FieldMark &mark);
/// Characters in quotes with their code points, such as "「﨑」（U+FA11）".
[[nodiscard]] std::string charactersText(const std::vector<char32_t> &characters);

} // namespace inin::viewer

#pragma once

#include "viewer/document/letter_press.h"

#include <functional>
#include <span>
#include <string>

namespace inin::viewer {

/// Told the number of pages written; false ends the writing, and no file is left.
using Progress = std::function<bool(std::size_t pages)>;

/// Writes letters as a PDF, a page each, in the order given, moved by `shift` points to the right and downwards. False when
/// `progress` ended it. A RuntimeError with a sentence when the file cannot be written; an older file of that name then
/// stays.
bool writeLettersPdf(const std::string &path, LetterPress &press, std::span<const std::size_t> letters,
                     const Progress &progress = {}, Point shift = {});

} // namespace inin::viewer

#pragma once

#include "viewer/document/letter_renderer.h"

#include <functional>
#include <span>
#include <string>

namespace inin::viewer {

/// Receives the number of letters written. Returning false cancels the output and leaves no file.
using Progress = std::function<bool(std::size_t pages)>;

/// Writes letters as a PDF in the given order, the pages of each together, shifted by `shift` points to the right and downwards. False
/// when `progress` cancelled it. Throws a RuntimeError with a sentence when the file cannot be written, and keeps an
/// older file of that name.
bool writeLettersPdf(const std::string &path, LetterRenderer &renderer, std::span<const std::size_t> letters,
                     const Progress &progress = {}, Point shift = {});

} // namespace inin::viewer

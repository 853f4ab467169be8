#pragma once

#include "viewer/document/letter_renderer.h"

#include <functional>
#include <span>
#include <string>

namespace inin::viewer {

/// Receives the number of letters written. Returning false cancels the output and leaves no file.
using Progress = std::function<bool(std::size_t pages)>;

/// What a PDF is for.
enum class PdfPurpose {
    reading, ///< tagged (PDF/UA-1), for screen readers, text extraction and search
    archive, ///< tagged, and PDF/A-2u
    printing ///< without tags, outline and metadata, in the least time
};

struct PdfOptions {
    PdfPurpose purpose = PdfPurpose::reading;
    Point shift = {};       ///< of all pages, in points to the right and downwards
    std::string title = {}; ///< of the document; empty for the kind and the months of the letters
};

/// Writes letters as a PDF in the given order, the pages of each together: all letters of a run, a group of them or a
/// single one. False when `progress` cancelled it. Throws a RuntimeError with a sentence when the file cannot be written,
/// and keeps an older file of that name.
bool writeLettersPdf(const std::string &path, LetterRenderer &renderer, std::span<const std::size_t> letters,
                     const Progress &progress = {}, const PdfOptions &options = {});

} // namespace inin::viewer

#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

inline constexpr std::string_view kPdfProducer = "formviewer";

enum class ArchiveClaim { none, pdfA };

/// The metadata of a tagged PDF in XMP: title, language, and the standards that the file follows.
[[nodiscard]] std::string xmpMetadata(std::string_view title, ArchiveClaim claim);

} // namespace inin::viewer

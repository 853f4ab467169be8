#pragma once

#include "viewer/document/letter_bundles.h"

#include <optional>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The bytes of the built-in cover form.
[[nodiscard]] std::string_view builtInCoverForm();

/// The covers of a site that has a form of its own for them, without any page. Throws a RuntimeError with a sentence that
/// names a form which cannot be read.
[[nodiscard]] std::optional<LetterReport> siteCovers(const LetterSet &set);

/// Gives each bundle the pages of a cover, which list its letters, and returns them as a report: one row for each page, with
/// as many names as the form has columns 氏名1, 氏名2 … A form without them has one page for each bundle.
[[nodiscard]] LetterReport addCovers(const LetterSet &set, const LetterNames &names,
                                     std::vector<LetterBundle> &bundles);

/// Whether a form that is opened with sample letters is a cover form: its file has the name of cover forms, or it names
/// columns of covers and none that only letters have.
[[nodiscard]] bool isCoverForm(const LetterReport &report);
/// Replaces the sample letters of a cover form by the first page of the cover of each insurer's bundle.
void replaceByCovers(LetterSet &samples);

} // namespace inin::viewer

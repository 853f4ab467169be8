#pragma once

#include "viewer/form/form_document.h"
#include "viewer/form/svg_style.h"

#include <vector>

namespace inin::viewer {

/// Distributes the commands of a drawing over its pages, whose areas are in the drawing's points: the first area becomes
/// the form's page, the others its further pages. A shape or picture is drawn on every page that it touches, a text on the
/// page where it begins. Reports texts outside all pages. Throws a RuntimeError with a sentence for too many pages.
void distributeOverPages(FormDocument &form, const std::vector<Box> &areas, const NoticeHandler &report);

} // namespace inin::viewer

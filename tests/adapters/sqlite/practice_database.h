#pragma once

namespace inin {

/// Tables and a few rows of a practice: branch 1/1 with its head office, an agent and a group company, patients for
/// each rule of the extractions, staff, insurance kinds, tariffs and a map.
extern const char *const kPracticeDatabase;

} // namespace inin

#pragma once

#include "adapters/sqlite/database_file.h"

#include <string>

namespace inin {

/// The tables of an installed site and a few rows: branch 1/1 with its head office, an agent and a group
/// company, patients for each rule of the extractions, staff, insurance kinds, claim forms and tariffs.
const std::string &practiceDatabase();

/// A session on a new practice database.
struct PracticeSession {
    DatabaseFile file{practiceDatabase()};
    Session session{file};
};

} // namespace inin

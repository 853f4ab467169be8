#pragma once

#include "due_letters/due_letters.h"
#include "platform/database.h"
#include "runtime/regional.h"

#include <vector>

namespace inin::due {

struct Source {
    Database &database;
    Connection &connection; ///< open
    std::int32_t iKyotenCd;
    std::int32_t iKyotenEb;
    const Regional &regional;
};

/// One answer for each patient of the branch, or for the chosen one, by number. Reads only, with statements that every
/// database of the suite understands. Failures are RuntimeErrors.
[[nodiscard]] std::vector<Answer> dueLetters(const Source &source, const Conditions &conditions);

} // namespace inin::due

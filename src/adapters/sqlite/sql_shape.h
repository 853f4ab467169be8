#pragma once

#include "adapters/common/sql_tokenizer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace inin {

/// A statement without the whole numbers that its columns are compared with. The suite pastes them into its texts, so
/// texts that ask for one patient after another have one shape, and one prepared statement serves them all.
struct SqlShape {
    std::vector<Token> tokens; ///< with ?1, ?2, … in place of the numbers
    std::vector<std::int64_t> numbers;
    std::string key; ///< equal for texts of one shape only
};

[[nodiscard]] SqlShape shapeOf(std::vector<Token> tokens);

} // namespace inin

#pragma once

#include "adapters/common/sql_tokenizer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace inin {

/// A statement whose compared integers are replaced by parameters. The suite inserts such numbers into its statements,
/// so queries for one patient after another have the same shape and share one prepared statement.
struct SqlShape {
    std::vector<Token> tokens; ///< with ?1, ?2, … in place of the numbers
    std::vector<std::int64_t> numbers;
    std::string key; ///< equal only for statements of the same shape
};

[[nodiscard]] SqlShape shapeOf(std::vector<Token> tokens);

} // namespace inin

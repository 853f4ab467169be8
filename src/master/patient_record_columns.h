#pragma once

#include "master/patient_record.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace inin {

/// How a NULL is converted.
enum class NullRule {
    guarded, ///< NULL leaves the field unchanged, blank or with the value of an earlier column
    empty,   ///< NULL becomes the empty text
    zero,    ///< NULL and anything that is not a 32-bit number become 0
};

/// A field of the record. Its type determines the conversion of the column.
using PatientField =
    std::variant<std::int32_t RIYOUSHA_REC::*, std::int16_t RIYOUSHA_REC::*, Date RIYOUSHA_REC::*,
                 std::string RIYOUSHA_REC::*, FixedText<8> RIYOUSHA_REC::*, FixedText<14> RIYOUSHA_REC::*>;

/// A column of RIYOUSHA, its field and its rule.
struct PatientColumn {
    const char *name;
    PatientField field;
    NullRule rule;
};

/// The columns known to the suite, in the order in which they are read: of two that share a field the later one
/// applies.
[[nodiscard]] std::span<const PatientColumn> patientColumns();

} // namespace inin

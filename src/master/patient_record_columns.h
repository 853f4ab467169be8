#pragma once

#include "master/patient_record.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace inin {

/// What becomes of a value on its way into the record.
enum class NullRule {
    guarded, ///< NULL leaves the field as it stands, blank or with the value of an earlier column
    empty,   ///< NULL becomes the empty text
    zero,    ///< NULL, and what is no 32-bit number, becomes 0
};

/// A field of the record. Its type decides to what the column is converted.
using PatientField =
    std::variant<std::int32_t RIYOUSHA_REC::*, std::int16_t RIYOUSHA_REC::*, Date RIYOUSHA_REC::*,
                 std::string RIYOUSHA_REC::*, FixedText<8> RIYOUSHA_REC::*, FixedText<14> RIYOUSHA_REC::*>;

/// A column of RIYOUSHA, the field that it lands in and its rule.
struct PatientColumn {
    const char *name;
    PatientField field;
    NullRule rule;
};

/// The columns that the suite knows, in the order in which they are read: of two that share a field the later one wins.
[[nodiscard]] std::span<const PatientColumn> patientColumns();

} // namespace inin

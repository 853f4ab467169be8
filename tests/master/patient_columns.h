#pragma once

#include "master/patient_record.h"
#include "runtime/variant.h"

#include <span>

namespace inin {

/// The type of a column's field.
enum class Stored { whole16, whole32, text, fixed8, fixed14, date };

/// One column of RIYOUSHA, typed by hand: a value of its own and the record after its read. A value of a 32-bit field
/// exceeds 16 bits. A column that shares a field overwrites it in `expect` as the read must.
struct PatientCase {
    const char *column;
    Stored stored;
    char rule; ///< 'G' NULL keeps the field, 'E' NULL is the empty text, 'Z' NULL is 0
    Variant value;
    void (*expect)(RIYOUSHA_REC &rec);
};

/// The 181 columns in the order in which they are read.
[[nodiscard]] std::span<const PatientCase> patientCases();

} // namespace inin

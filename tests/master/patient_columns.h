#pragma once

#include "master/patient_record.h"
#include "runtime/variant.h"

#include <span>

namespace inin {

/// What a column is converted to.
enum class Stored { whole16, whole32, text, fixed8, fixed14, date };

/// One column of RIYOUSHA, typed out: a value of its own and what the record holds when it has been read. A value of a
/// 32-bit field needs more than 16 bits. A column that shares a field overwrites it in `expect` as the read must.
struct PatientCase {
    const char *column;
    Stored stored;
    char rule; ///< 'G' NULL leaves the field, 'E' NULL is the empty text, 'Z' NULL is 0
    Variant value;
    void (*expect)(RIYOUSHA_REC &rec);
};

/// The 181 columns in the order in which they are read.
[[nodiscard]] std::span<const PatientCase> patientCases();

} // namespace inin

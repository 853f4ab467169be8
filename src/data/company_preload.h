#pragma once

#include "master/fixed_text.h"
#include "shell/app.h"

#include <array>
#include <cstdint>
#include <string>

namespace inin {

/// The head office as a process-wide record of the suite's programs. A new record is blank: numbers 0, texts empty,
/// fixed texts filled with NULs.
struct CompanyRecord {
    FixedText<50> companyName; ///< both halves of the name, concatenated
    std::string businessNumber;
    FixedText<8> postalCode;
    FixedText<50> address1;
    FixedText<50> address2;
    FixedText<14> telephone;
    FixedText<14> fax;
    FixedText<30> reservedFixedText;
    std::array<std::int32_t, 11> reservedNumbers{};
    std::int32_t latitude = 0;  ///< in the unit of the map data
    std::int32_t longitude = 0; ///< in the same unit
    std::string reservedText;
    std::int16_t reservedFlag = 0;
    FixedText<50> representative;
    std::string secondBusinessNumber;
    std::string mailDestination;
    std::string mailDestinationPostalCode;

    friend bool operator==(const CompanyRecord &, const CompanyRecord &) = default;
};

/// Fills the record from the head-office row of this branch, on a session of its own. A failure shows its box and ends
/// the preload but not the caller; a branch without a head office leaves the record unchanged, without a message.
void loadInitCorp(App &app, CompanyRecord &record);

} // namespace inin

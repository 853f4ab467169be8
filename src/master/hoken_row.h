#pragma once

#include <cstdint>
#include <string>

namespace inin {

/// An insurance kind.
struct cD_HOKEN {
    std::string cName, cRyaku, cType; ///< full name, short name, label
    std::int32_t iType = -1;          ///< number of the kind
    /// As in the other row classes; no statement uses them here.
    std::string cPcName, tUpDateTime;
};

} // namespace inin

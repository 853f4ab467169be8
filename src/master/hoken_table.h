#pragma once

#include "master/table_contract.h"

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

/// The insurance kinds of all branches.
class cT_HOKEN : public TableClass<cD_HOKEN> {
public:
    explicit cT_HOKEN(App &app);

    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_HOKEN &clsHOKEN(std::int32_t nIdx) const { return rowAt(nIdx); }
    /// Reads the whole table in the order of iType. The row sets no condition but is required. A kind that two branches
    /// define appears twice.
    [[nodiscard]] std::int16_t iDataRead(const cD_HOKEN *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_HOKEN *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// Finds the row by its iType, which therefore cannot change.
    [[nodiscard]] std::int16_t iDataUpdate(const cD_HOKEN *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_HOKEN *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);
};

} // namespace inin

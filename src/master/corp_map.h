#pragma once

#include "data/connection_settings.h"
#include "master/table_contract.h"

#include <cstdint>
#include <string>

namespace inin {

/// The owner of a map: the company's own map has number 0, one per branch.
inline constexpr std::int32_t kMapOfCompany = 0;
/// Only read the picture and delete its file; nothing is written to the database.
inline constexpr std::int32_t kMapTakeOnly = 99999999;
/// The status of iChizuLoad if there is no such map.
inline constexpr std::int16_t kNoSuchMap = -2;

/// The map pictures of the branch, written when the map component has left a picture file. Each operation uses a session
/// of its own in addition to that of the company table, and so a transaction of its own. Failures of the settings, the
/// session and the file are shown at once; all error texts are in sErrMsg.
class CorpMap {
public:
    explicit CorpMap(App &app);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    [[nodiscard]] bool isPictureThere() const;
    /// 0 if the row exists, kNoSuchMap if not, -1 on a failure.
    void iChizuLoad(const std::int32_t &nIDNo, std::int16_t &iStatus);
    /// Inserts the row, with empty values if there is no picture. 0 or -1. The file is deleted after it is read,
    /// whether or not the write succeeds. If the database allows one writer and another session of the program is
    /// writing, the operation fails before it reads the file.
    void iChizuSave(const std::int32_t &nIDNo, std::int16_t &iStatus);
    /// The same, but replaces the picture in the row. Without a picture the statement has an empty set list and fails.
    void iChizuUpdate(const std::int32_t &nIDNo, std::int16_t &iStatus);

    // The map in a write of cT_CORP, whose error text receives that of a failure. 0 or -1. The number is always that of
    // the company, not of its row: a branch has one map for its company.
    [[nodiscard]] std::int16_t saveForCompany(std::string &sErrMsg);
    /// Without a picture it does nothing.
    [[nodiscard]] std::int16_t saveOrUpdateForCompany(std::string &sErrMsg);

private:
    using Statement = std::string (*)(Branch branch, std::int32_t nIDNo, const std::string &picture);

    template <class Operation> [[nodiscard]] std::int16_t reported(const std::string &name, Operation &&operation);
    [[nodiscard]] std::int16_t connect(const std::string &name);
    [[nodiscard]] std::int16_t write(const std::string &name, std::int32_t nIDNo, Statement statement);
    [[nodiscard]] std::int16_t checkWriter(const std::string &name);
    [[nodiscard]] std::string takePicture() const;
    [[nodiscard]] std::int16_t withWords(std::int16_t iStatus, std::string &sErrMsg) const;

    App &m_app;
    StartedSession m_cADOTo;
    TableSession m_table;
};

} // namespace inin

#pragma once

#include "data/connection_settings.h"
#include "master/corp_table.h"
#include "master/table_contract.h"

#include <array>
#include <cstdint>
#include <string>

namespace inin {

/// Whose map it is: the company's own stands under 0, one for each site.
inline constexpr std::int32_t kMapOfCompany = 0;
/// Only read the picture and delete its file; nothing goes to the database.
inline constexpr std::int32_t kMapTakeOnly = 99999999;
/// The status of iChizuLoad for a map that is not there.
inline constexpr std::int16_t kNoSuchMap = -2;

/// The map pictures of the site, written when the map component has left a picture in a file. Each operation works on a
/// session of its own, beside the one of the company's table, and so in its own transaction. Failures of the settings,
/// the session and the file are shown at once; the words of all stand in sErrMsg.
class CorpMap {
public:
    explicit CorpMap(App &app);

    [[nodiscard]] const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    [[nodiscard]] bool isPictureThere() const;
    /// 0 where the row exists, kNoSuchMap where not, -1 on a failure.
    void iChizuLoad(const std::int32_t &nIDNo, std::int16_t &iStatus);
    /// Inserts the row, with empty values where there is no picture. 0 or -1. The file is deleted once it was read,
    /// whether the write succeeds or not. While another session of the program is the database's only writer, the
    /// operation fails before it reads the file.
    void iChizuSave(const std::int32_t &nIDNo, std::int16_t &iStatus);
    /// Likewise, but replaces the picture in the row. Without a picture the statement has nothing to set and fails.
    void iChizuUpdate(const std::int32_t &nIDNo, std::int16_t &iStatus);

private:
    using Pictures = std::array<std::string, 3>;
    using Statement = std::string (*)(Site site, std::int32_t nIDNo, const Pictures &pictures);

    template <class Operation> [[nodiscard]] std::int16_t told(const std::string &name, Operation &&operation);
    [[nodiscard]] std::int16_t connect(const std::string &name);
    [[nodiscard]] std::int16_t write(const std::string &name, std::int32_t nIDNo, Statement statement);
    [[nodiscard]] std::int16_t checkWriter(const std::string &name);
    [[nodiscard]] std::string takePicture() const;

    App &m_app;
    StartedSession m_cADOTo;
    TableSession m_table;
};

/// The map's turn in the writes of cT_CORP.
[[nodiscard]] CorpMapHook corpMapHook(App &app);

} // namespace inin

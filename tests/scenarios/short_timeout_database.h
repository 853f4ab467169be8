#pragma once

#include "platform/database.h"

#include <memory>
#include <utility>

namespace inin {

/// Another database whose commands wait at most a second, whatever timeout the program sets, so that a test need not
/// wait three minutes.
class ShortTimeoutDatabase : public Database {
public:
    explicit ShortTimeoutDatabase(std::unique_ptr<Database> inner) : m_inner(std::move(inner)) {}
    [[nodiscard]] std::unique_ptr<Connection> newConnection() override;
    [[nodiscard]] std::unique_ptr<Recordset> newRecordset() override;

private:
    std::unique_ptr<Database> m_inner;
};

} // namespace inin

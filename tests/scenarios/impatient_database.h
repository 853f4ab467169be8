#pragma once

#include "platform/database.h"

#include <memory>
#include <utility>

namespace inin {

/// Another database whose commands wait no longer than a second, whatever the program asks for: what takes three
/// minutes in the field is seen in a test.
class ImpatientDatabase : public Database {
public:
    explicit ImpatientDatabase(std::unique_ptr<Database> inner) : m_inner(std::move(inner)) {}
    [[nodiscard]] std::unique_ptr<Connection> newConnection() override;
    [[nodiscard]] std::unique_ptr<Recordset> newRecordset() override;

private:
    std::unique_ptr<Database> m_inner;
};

} // namespace inin

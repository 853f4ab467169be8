#pragma once

#include "demo_site/row_target.h"
#include "platform/database.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace inin::site {

/// The server's syntax for a binary value.
struct BinaryLiteral {
    std::string_view start = "0x";
    std::string_view end;
};

/// Fills the tables of a server's database in batches of many rows per statement; finish() writes the rest. Texts and
/// dates are written independent of the server's language setting.
class ServerTarget : public RowTarget {
public:
    explicit ServerTarget(Connection &connection, BinaryLiteral binary = {});
    ~ServerTarget() override;
    RowSink &into(std::string_view table, std::span<const std::string_view> columns) override;
    void finish();

private:
    class Batch;
    Connection &m_connection;
    BinaryLiteral m_binary;
    std::set<std::string> m_dateColumns; ///< "table.column"
    std::vector<std::unique_ptr<Batch>> m_batches;
};

/// Splits a script into statements and removes its comments.
[[nodiscard]] std::vector<std::string> statementsOf(std::string_view script);

} // namespace inin::site

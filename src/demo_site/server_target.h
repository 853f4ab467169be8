#pragma once

#include "demo_site/row_target.h"
#include "platform/database.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace inin::site {

/// How a server writes a binary value.
struct BinaryLiteral {
    std::string_view start = "0x";
    std::string_view end;
};

/// The tables of a server's database. Rows go in batches, many to a statement; what has not gone yet goes by finish().
/// Texts and dates are written so that no setting of the server's language changes them.
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

/// The statements of a script one by one, without its comments.
[[nodiscard]] std::vector<std::string> statementsOf(std::string_view script);

} // namespace inin::site

#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace inin::site {

struct Blob {
    std::string bytes;
};
/// One value of a row; monostate is NULL.
using Cell = std::variant<std::monostate, std::int64_t, std::string, Blob>;
inline constexpr std::monostate kNull{};

/// Receives the rows of one table in order. Failures raise RuntimeError.
class RowSink {
public:
    RowSink() = default;
    RowSink(const RowSink &) = delete;
    RowSink &operator=(const RowSink &) = delete;
    virtual ~RowSink() = default;
    virtual void row(std::span<const Cell> cells) = 0;
    void row(std::initializer_list<Cell> cells) { row(std::span<const Cell>{cells.begin(), cells.size()}); }
};

/// The destination of the demo's rows: a new database file or a server's database.
class RowTarget {
public:
    RowTarget() = default;
    RowTarget(const RowTarget &) = delete;
    RowTarget &operator=(const RowTarget &) = delete;
    virtual ~RowTarget() = default;
    /// Returns the sink for rows with these columns of a table; it lives as long as the target.
    virtual RowSink &into(std::string_view table, std::span<const std::string_view> columns) = 0;
};

} // namespace inin::site

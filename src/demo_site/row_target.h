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

/// Takes the rows of one table in the order in which they come. Failures are RuntimeErrors.
class RowSink {
public:
    RowSink() = default;
    RowSink(const RowSink &) = delete;
    RowSink &operator=(const RowSink &) = delete;
    virtual ~RowSink() = default;
    virtual void row(std::span<const Cell> cells) = 0;
};

/// Where the rows of a demo go: a new database file, or a database of a server.
class RowTarget {
public:
    RowTarget() = default;
    RowTarget(const RowTarget &) = delete;
    RowTarget &operator=(const RowTarget &) = delete;
    virtual ~RowTarget() = default;
    /// Rows with these columns of a table; the sink lives as long as the target.
    virtual RowSink &into(std::string_view table, std::span<const std::string_view> columns) = 0;
};

/// An INSERT into some columns of a table, again and again.
class Insert {
public:
    Insert(RowTarget &target, std::string_view table, std::span<const std::string_view> columns)
        : m_sink(target.into(table, columns))
    {
    }
    void row(std::span<const Cell> cells) { m_sink.row(cells); }
    void row(std::initializer_list<Cell> cells) { row(std::span<const Cell>{cells.begin(), cells.size()}); }

private:
    RowSink &m_sink;
};

} // namespace inin::site

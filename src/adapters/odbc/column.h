#pragma once

#include "runtime/variant.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace inin::odbc {

/// How the driver delivers the values of a column.
enum class ColumnForm : std::uint8_t {
    smallInteger,
    integer,
    bigInteger,
    bit,
    single,
    number,
    decimal,
    moment,
    day,
    time,
    guid,
    text,
    utf8Text,
    bytes
};

/// A column of a result, as the driver describes it.
struct OdbcColumn {
    std::string name;
    std::int32_t adoType = 0;
    ColumnForm form = ColumnForm::text;
    std::int16_t cType = 0; ///< the C type that the driver is asked to convert values to
    std::size_t width = 0;  ///< bytes per value in a row array; 0 for a long column, which is fetched in pieces

    [[nodiscard]] bool isLong() const { return width == 0; }
};

/// Built from the results of SQLDescribeCol; `typeName` is the server's own name of the type.
[[nodiscard]] OdbcColumn describeColumn(std::string name, std::int16_t sqlType, std::size_t size, std::int16_t digits,
                                        std::string_view typeName);

/// The value of a cell that is not NULL; `length` is the number of bytes that the driver wrote. A value fetched in pieces
/// that is shorter than its type is an error: a damaged file or a faulty driver.
[[nodiscard]] Variant valueOf(const OdbcColumn &column, const std::byte *cell, std::size_t length);

} // namespace inin::odbc

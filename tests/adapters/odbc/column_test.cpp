#include "adapters/odbc/column.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <vector>

using namespace inin;
using namespace inin::odbc;

namespace {

/// A column whose values are fetched in pieces, as those of Jet files are.
OdbcColumn fetchedColumn(ColumnForm form)
{
    OdbcColumn column;
    column.name = "n";
    column.form = form;
    return column;
}

} // namespace

TEST_CASE("a fetched value that is shorter than its type is an error")
{
    struct ShortValue {
        ColumnForm form;
        std::size_t length;
    };
    for (const ShortValue &value :
         {ShortValue{ColumnForm::smallInteger, 1}, ShortValue{ColumnForm::integer, 3},
          ShortValue{ColumnForm::integer, 0}, ShortValue{ColumnForm::bigInteger, 7}, ShortValue{ColumnForm::bit, 0},
          ShortValue{ColumnForm::single, 3}, ShortValue{ColumnForm::number, 3}, ShortValue{ColumnForm::number, 7},
          ShortValue{ColumnForm::moment, 15}, ShortValue{ColumnForm::day, 5}, ShortValue{ColumnForm::time, 5}}) {
        CAPTURE(static_cast<int>(value.form));
        const std::vector<std::byte> cell(value.length);
        CHECK_THROWS_WITH_AS((void)valueOf(fetchedColumn(value.form), cell.data(), cell.size()),
                             "the column n holds less than its type needs", RuntimeError);
    }
}

TEST_CASE("a fetched number, text or date of its full length is a value")
{
    const std::vector<std::byte> zeros(16);
    CHECK(valueOf(fetchedColumn(ColumnForm::smallInteger), zeros.data(), 2) == Variant(std::int16_t{0}));
    CHECK(valueOf(fetchedColumn(ColumnForm::smallInteger), zeros.data(), 4) == Variant(std::int16_t{0}));
    CHECK(valueOf(fetchedColumn(ColumnForm::number), zeros.data(), 4) == Variant(0.0));
    CHECK(valueOf(fetchedColumn(ColumnForm::number), zeros.data(), 8) == Variant(0.0));
    CHECK(valueOf(fetchedColumn(ColumnForm::bit), zeros.data(), 1) == Variant(std::int16_t{0}));
    CHECK(valueOf(fetchedColumn(ColumnForm::time), zeros.data(), 6) == Variant(Date(0)));
    CHECK(valueOf(fetchedColumn(ColumnForm::moment), zeros.data(), 16) == Variant("0000-00-00"));
    CHECK(valueOf(fetchedColumn(ColumnForm::text), zeros.data(), 0) == Variant(""));
}

TEST_CASE("a decimal or a GUID with foreign bytes becomes a valid text")
{
    const std::vector<std::byte> cell{std::byte{'1'}, std::byte{0xFF}};
    CHECK(valueOf(fetchedColumn(ColumnForm::decimal), cell.data(), cell.size()) == Variant("1\uFFFD"));
    CHECK(valueOf(fetchedColumn(ColumnForm::guid), cell.data(), cell.size()) == Variant("{1\uFFFD}"));
}

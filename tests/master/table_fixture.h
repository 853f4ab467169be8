#pragma once

#include "data/ado_session.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

using Log = std::vector<std::string>;

/// A table class on a connected session of branch 1, sub-branch 2, with an empty log.
template <class Table> struct TableFixture : FakeWorld {
    TableFixture()
    {
        REQUIRE(session.iInit("Provider=Fake") == iGood);
        REQUIRE(session.iConnect() == iGood);
        REQUIRE(table.iInit(session) == iGood);
        database.log.clear();
    }
    Table *operator->() { return &table; }

    cT_ADODB session{app};
    Table table{app};
};

/// A row as given by a test: only the relevant columns.
using GivenRow = std::vector<std::pair<std::string_view, Variant>>;

/// A result with these columns, NULL unless a row has a value.
inline FakeResult rowsOf(const std::vector<std::string> &columns, const std::vector<GivenRow> &rows)
{
    FakeResult result;
    result.columns = columns;
    for (const GivenRow &given : rows) {
        std::vector<Variant> values(columns.size(), Null{});
        for (const auto &[name, value] : given) {
            const auto column = std::find(columns.begin(), columns.end(), name);
            if (column == columns.end()) throw std::logic_error("no such column: " + std::string(name));
            values[static_cast<std::size_t>(column - columns.begin())] = value;
        }
        result.rows.push_back(std::move(values));
    }
    return result;
}

/// A result that fails with this error.
inline FakeResult failure(std::int32_t number, const std::string &description)
{
    FakeResult result;
    result.error = number;
    result.description = description;
    return result;
}

} // namespace inin

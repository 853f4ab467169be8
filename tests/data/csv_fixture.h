#pragma once

#include "data/jet_db_to_csv.h"
#include "support/embedded_world.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace inin {

using Boxes = std::vector<ShownBox>;
using Log = std::vector<std::string>;

inline constexpr const char *kFile = "C:\\SUITE\\TMP\\out.csv";

inline ShownBox critical(const std::string &text)
{
    return {text, Icon::critical, ""};
}

inline FakeResult answer(const std::vector<std::string> &columns, const std::vector<std::vector<Variant>> &rows,
                         const std::vector<std::int32_t> &types = {})
{
    FakeResult result;
    result.columns = columns;
    result.rows = rows;
    result.types = types;
    return result;
}

inline FakeResult refusal()
{
    FakeResult result;
    result.error = -2147217865;
    result.description = "表がありません。";
    return result;
}

/// A statement with this number of fields.
inline std::string wideStatement(int fields)
{
    std::string sql = "SELECT ";
    for (int field = 1; field <= fields; ++field)
        sql += (field == 1 ? "" : ",") + std::to_string(field) + " AS f" + std::to_string(field);
    return sql;
}

struct CsvFixture : FakeWorld {
    std::int32_t init(const FakeResult &result)
    {
        database.results.push_back(result);
        std::int32_t nRecSuu = -7;
        REQUIRE(csv.iInitJ2C("SELECT 1", kFile, nRecSuu) == iGood);
        return nRecSuu;
    }
    [[nodiscard]] std::string text() const { return fromCp932(files.bytes(kFile)); }
    cls_JetDB2CSV csv{app};
};

/// The class on the embedded database.
struct EmbeddedCsv : EmbeddedWorld {
    std::string write(const std::string &sql)
    {
        std::int32_t nRecSuu = 0;
        if (csv.iInitJ2C(sql, kFile, nRecSuu) != iGood || csv.iExecJ2C(Midasi::ari) != iGood) return "failed";
        return fromCp932(files.bytes(kFile));
    }
    cls_JetDB2CSV csv{site};
};

} // namespace inin

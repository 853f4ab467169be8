#pragma once

#include "search/search_fixture.h"
#include "support/embedded_world.h"

#include <string>

namespace inin {

/// A text as a string literal of the database.
inline std::string quoted(const std::string &text)
{
    std::string result = "'";
    for (const char c : text) result += c == '\'' ? std::string("''") : std::string(1, c);
    return result + "'";
}

/// A site of branch 1, 2 with one staff member, which the windows need to open.
struct EmbeddedSearch : EmbeddedWorld {
    EmbeddedSearch() { staff(11, "佐藤 花子", "ｻﾄｳ ﾊﾅｺ"); }
    void staff(std::int32_t nIDNo, const std::string &name, const std::string &kana) const
    {
        run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, iChusiFlg) VALUES (1, 2, " +
            std::to_string(nIDNo) + ", " + quoted(name) + ", " + quoted(kana) + ", 0)");
    }
    void patient(std::int32_t nIDNo, const std::string &name, const std::string &kana) const
    {
        run("INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana) VALUES (1, 2, " +
            std::to_string(nIDNo) + ", " + quoted(name) + ", " + quoted(kana) + ")");
    }
    void ended(std::int32_t nIDNo, const std::string &day) const
    {
        run("INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, tExpireDay) VALUES (1, 2, " + std::to_string(nIDNo) +
            ", " + quoted(day) + ")");
    }
};

} // namespace inin

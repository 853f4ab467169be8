#include "viewer/document/row_agreement.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A letter of the patient, with a changeable address.
Row rowOf(const std::string &patient, const std::string &address = "番町")
{
    Row row = ordinaryRow();
    row["利用者氏名"] = patient;
    row["利用者住所"] = address;
    return row;
}

LetterSet letters(const std::vector<Row> &rows)
{
    return lettersOn(svgPage(""), rows);
}

LetterTicks ticked(std::size_t count, const std::string &text)
{
    LetterTicks ticks(count);
    ticks.setText(text);
    return ticks;
}

} // namespace

TEST_CASE("equal rows are found at their new places, and a changed row is new")
{
    const LetterSet before = letters({rowOf("甲"), rowOf("乙"), rowOf("丙")});
    const LetterSet now = letters({rowOf("丁"), rowOf("丙"), rowOf("甲"), rowOf("乙", "中央町")});
    CHECK(sameRows(before, now) == std::vector<std::optional<std::size_t>>{std::nullopt, 2, 0, std::nullopt});
}

TEST_CASE("duplicate rows are assigned in their order, each once")
{
    const LetterSet before = letters({rowOf("甲"), rowOf("甲")});
    const LetterSet now = letters({rowOf("甲"), rowOf("甲"), rowOf("甲")});
    CHECK(sameRows(before, now) == std::vector<std::optional<std::size_t>>{0, 1, std::nullopt});
}

TEST_CASE("rows that differ only in the place of their values are different")
{
    Row left = rowOf("甲"), right = rowOf("甲");
    left["世帯主名"] = "";
    left["世帯主電話"] = "1";
    right["世帯主名"] = "1";
    right["世帯主電話"] = "";
    CHECK(sameRows(letters({left}), letters({right})) == std::vector<std::optional<std::size_t>>{std::nullopt});
}

TEST_CASE("a reload keeps the ticks of equal rows, ticks new rows and keeps the letter")
{
    const LetterSet before = letters({rowOf("甲"), rowOf("乙"), rowOf("丙")});
    const LetterSet now = letters({rowOf("丁"), rowOf("甲"), rowOf("乙"), rowOf("丙", "中央町")});
    const KeptView kept = keptView(before, ticked(3, "2"), 1, now);
    CHECK(kept.ticks.text() == "1,3-4");
    CHECK(kept.letter == 2);
    CHECK(kept.newLetters == 2);
}

TEST_CASE("a shown letter that has changed is found by its names, otherwise by its number")
{
    const LetterSet before = letters({rowOf("甲"), rowOf("乙"), rowOf("丙")});
    CHECK(keptView(before, LetterTicks(3), 2, letters({rowOf("丙", "中央町"), rowOf("甲"), rowOf("乙")})).letter == 0);
    CHECK(keptView(before, LetterTicks(3), 1, letters({rowOf("丁"), rowOf("戊"), rowOf("己")})).letter == 1);
    CHECK(keptView(before, LetterTicks(3), 2, letters({rowOf("丁")})).letter == 0);
}

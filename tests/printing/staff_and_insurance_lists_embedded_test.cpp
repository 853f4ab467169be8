#include "printing/print_form.h"
#include "support/embedded_world.h"

#include <doctest/doctest.h>

namespace inin {

namespace {

using Items = std::vector<std::pair<std::string, std::int32_t>>;

/// A screen on a real, empty database of branch 1-2.
struct EmbeddedFixture {
    EmbeddedWorld world;
    frmPrintInin form{world.site};

    static Items itemsOf(const ListBox &list)
    {
        Items items;
        for (const ListBox::Item &item : list.items()) items.emplace_back(item.text, item.ItemData);
        return items;
    }
    [[nodiscard]] std::vector<ShownBox> boxes() const { return world.boxes.shown; }
};

} // namespace

TEST_CASE_FIXTURE(EmbeddedFixture, "an empty database has no staff: the screen returns to the menu program")
{
    CHECK_THROWS_AS(form.load(), ProcessEnded);
    CHECK(boxes() ==
          std::vector<ShownBox>{{"スタッフが存在しません。メイン画面に戻ります", Icon::critical, "委任状印刷"}});
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
}

TEST_CASE_FIXTURE(EmbeddedFixture, "staff of another branch do not count")
{
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName) VALUES (1, 1, 1, 'よその人')");

    CHECK_THROWS_AS(form.load(), ProcessEnded);
    REQUIRE(boxes().size() == 1);
    CHECK(boxes()[0].text == "スタッフが存在しません。メイン画面に戻ります");
}

TEST_CASE_FIXTURE(EmbeddedFixture, "rows with NULL in every column except the keys give empty entries")
{
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 2, 5)");
    world.run("INSERT INTO HOKEN DEFAULT VALUES");
    world.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 2, 1)");
    form.load();

    CHECK(boxes().empty());
    CHECK(itemsOf(form.cbSejyutsu) == Items{{"－ 指定なし －", -1}, {"", 5}});
    CHECK(itemsOf(form.cmbHoken) == Items{{"－ 指定なし －", -1}, {"", 0}});
}

TEST_CASE_FIXTURE(EmbeddedFixture,
                  "the staff list is ordered by number and omits former staff unless they are included")
{
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, iChusiFlg) VALUES"
              " (1, 2, 30, '三十', 0), (1, 2, 4, '四', NULL), (1, 2, 9, '九', 1), (1, 2, 100, '百', 2)");
    form.load();

    CHECK(itemsOf(form.cbSejyutsu) == Items{{"－ 指定なし －", -1}, {"四", 4}, {"三十", 30}});
    form.chkChushi.Value = std::int16_t{1};
    CHECK(itemsOf(form.cbSejyutsu) == Items{{"－ 指定なし －", -1}, {"四", 4}, {"九", 9}, {"三十", 30}, {"百", 100}});
}

TEST_CASE_FIXTURE(EmbeddedFixture,
                  "the insurance list is ordered by kind over all branches and keeps kinds beyond 16 bits")
{
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName) VALUES (1, 2, 1, '一')");
    world.run("INSERT INTO HOKEN (iKyotenCd, iKyotenEb, cType, iType) VALUES"
              " (9, 9, '大', 100000), (1, 2, '国保', 1), (3, 3, ' 国保 ', 1), (1, 2, '空', NULL)");
    form.load();

    CHECK(boxes().empty());
    CHECK(itemsOf(form.cmbHoken) == Items{{"－ 指定なし －", -1}, {"空", 0}, {"国保", 1}, {"国保", 1}, {"大", 100000}});
}

TEST_CASE_FIXTURE(EmbeddedFixture, "a kind beyond 32 bits leaves the insurance list empty after one box")
{
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName) VALUES (1, 2, 1, '一')");
    world.run("INSERT INTO HOKEN (cType, iType) VALUES ('巨', 3000000000)");
    form.load();

    CHECK(boxes() == std::vector<ShownBox>{{"保険区分の取得に失敗しました。", Icon::critical, "初期設定"}});
    CHECK(form.cmbHoken.ListCount() == 0);
    CHECK(form.cbSejyutsu.ListCount() == 2);
}

TEST_CASE_FIXTURE(EmbeddedFixture, "five thousand staff members are listed completely and in order")
{
    world.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
              " INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName) SELECT 1, 2, i, '施術者' || i FROM n");
    form.load();

    REQUIRE(form.cbSejyutsu.ListCount() == 5001);
    CHECK(form.cbSejyutsu.items()[1].text == "施術者1");
    CHECK(form.cbSejyutsu.items()[5000].text == "施術者5000");
    CHECK(form.cbSejyutsu.ItemData(5000) == 5000);
}

TEST_CASE_FIXTURE(EmbeddedFixture, "the load fills the company record from the head office of this branch")
{
    world.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName) VALUES (1, 2, 1, '一')");
    world.run(
        "INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1, cShamei2, cJigyousyoNo) VALUES"
        " (1, 1, 1, 0, 'よそ', '', '1'), (1, 2, 1, 0, '株式会社', 'みどり', '27-1'), (1, 2, 2, 1, '代理', '', '2')");
    form.load();

    CHECK(form.company.businessNumber == "27-1");
}

} // namespace inin

#include "master/corp_table.h"

#include <doctest/doctest.h>

#include <limits>
#include <ostream>

using namespace inin;

namespace {

using Word = std::string_view (*)(const std::int32_t &);

struct WordRow {
    std::int32_t code;
    std::string_view word;
};

template <std::size_t N> void checkWords(Word word, const WordRow (&rows)[N])
{
    for (const WordRow &row : rows) {
        CAPTURE(row.code);
        CHECK(word(row.code) == row.word);
    }
}

} // namespace

TEST_CASE("each role of a company has its word, an unknown one has none")
{
    checkWords(&cD_CORP::sType,
               {{-1, ""}, {0, "本社（往療基点）"}, {1, "受領代理人"}, {2, "受領代理人"}, {3, "団体請求"}, {4, ""}});
}

TEST_CASE("each kind of bank has its word, an unknown one has none")
{
    checkWords(&cD_CORP::sKinSyubetsu,
               {{-1, ""}, {0, ""}, {1, "銀行"}, {2, "金庫"}, {3, "農協"}, {4, "郵便局"}, {5, ""}});
}

TEST_CASE("each kind of bank office has its word, an unknown one has none")
{
    checkWords(&cD_CORP::sKinSiten,
               {{-1, ""}, {0, ""}, {1, "本店"}, {2, "支店"}, {3, "本所"}, {4, "支所"}, {5, "出張所"}, {6, ""}});
}

TEST_CASE("each kind of account has its word, an unknown one has none")
{
    checkWords(&cD_CORP::sKozaType, {{-1, ""}, {0, ""}, {1, "普通"}, {2, "当座"}, {3, "通知"}, {4, "別段"}, {5, ""}});
}

TEST_CASE("the limits of the number range have no word")
{
    constexpr std::int32_t kEnds[] = {std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max()};
    for (const std::int32_t code : kEnds)
        for (const Word word : {&cD_CORP::sType, &cD_CORP::sKinSyubetsu, &cD_CORP::sKinSiten, &cD_CORP::sKozaType})
            CHECK(word(code).empty());
}

TEST_CASE("a word is that of the given code, not of the row's own")
{
    cD_CORP row;
    row.iType = 3;
    CHECK(row.sType(0) == "本社（往療基点）");
}

TEST_CASE("a fresh company has -1 in its numbers except the city number")
{
    const cD_CORP fresh;
    const std::int32_t minusOnes[] = {fresh.iKinSiten, fresh.iKinSyubetsu, fresh.iKozaKubun, fresh.iKozaType,
                                      fresh.iType,     fresh.nIDNo,        fresh.nLat,       fresh.nLon};
    for (const std::int32_t number : minusOnes) CHECK(number == -1);
    CHECK(fresh.iKyotenToshiNo == 0);
}

TEST_CASE("a fresh company has empty texts")
{
    const cD_CORP fresh;
    const std::string *texts[] = {&fresh.cHokenTourokuKubetsu,
                                  &fresh.cJigyousyoNo2,
                                  &fresh.cJigyouReceiptName,
                                  &fresh.cKinyuNo,
                                  &fresh.cKinyuSitenNo,
                                  &fresh.cJigyousyoNo,
                                  &fresh.cAddress1,
                                  &fresh.cAddress2,
                                  &fresh.cAddressKana,
                                  &fresh.cDaihyo,
                                  &fresh.cDaihyoKana,
                                  &fresh.cFaxNo,
                                  &fresh.cKinyuName,
                                  &fresh.cKinyuSiten,
                                  &fresh.cKozaBangou,
                                  &fresh.cKozaKana,
                                  &fresh.cKozaMeigi1,
                                  &fresh.cKozaMeigi2,
                                  &fresh.cShamei1,
                                  &fresh.cShamei2,
                                  &fresh.cShameiKana1,
                                  &fresh.cShameiKana2,
                                  &fresh.cTelNo,
                                  &fresh.cYubinNo,
                                  &fresh.cPcName,
                                  &fresh.tUpDateTime,
                                  &fresh.cMailDestination,
                                  &fresh.cMailDestinationZipNo,
                                  &fresh.cPersonalNumberCorp,
                                  &fresh.cKokuhoTourokuNo,
                                  &fresh.cEmail};
    for (const std::string *text : texts) CHECK(text->empty());
}

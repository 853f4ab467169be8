#include "printing/print_fixture.h"

#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

namespace inin {

TEST_CASE_FIXTURE(PrintFixture, "a letter of planned data by month has all twenty texts")
{
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.rows() == std::vector<std::vector<std::string>>{{"2024/05/01",
                                                                "2024/05/31",
                                                                "高松市",
                                                                "利用　花子",
                                                                "香川県高松市番町１－８－１５",
                                                                "株式会社さくら",
                                                                "東京都千代田区１－１",
                                                                "代表　太郎",
                                                                "03-1111-2222",
                                                                "みどり金庫  中央本店",
                                                                "(普) 1234567",
                                                                "カ）サクラ",
                                                                "2024/05/28",
                                                                "番町地区",
                                                                "3",
                                                                "世帯　一郎",
                                                                "087-333-4444",
                                                                "香川県高松市番町",
                                                                "みどり銀行  中央支店",
                                                                "2024/05/01"}});
}

TEST_CASE("a NULL in any column gives the text for an empty value")
{
    struct Row {
        const char *column;
        IninField field;
        const char *text;
    };
    for (const Row &row : {
             Row{"HokenName", &IninRow::保険者名, ""},
             Row{"RiyouName", &IninRow::利用者氏名, ""},
             Row{"RiyouAdd", &IninRow::利用者住所, ""},
             Row{"CorpName", &IninRow::会社名称, ""},
             Row{"CorpAdd", &IninRow::会社住所, ""},
             Row{"cDaihyo", &IninRow::代表者名, ""},
             Row{"cTelNo", &IninRow::会社電話番号, ""},
             Row{"cKinyuName", &IninRow::金融機関名, "金庫  中央本店"},
             Row{"cKinyuName", &IninRow::金融機関名２, "銀行  中央支店"},
             Row{"iKinSyubetsu", &IninRow::金融機関名, "みどり  中央本店"},
             Row{"cKinyuSiten", &IninRow::金融機関名, "みどり金庫  本店"},
             Row{"cKinyuSiten", &IninRow::金融機関名２, "みどり銀行  支店"},
             Row{"iKinSiten", &IninRow::金融機関名, "みどり金庫  中央"},
             Row{"iKozaType", &IninRow::口座番号, " 1234567"},
             Row{"cKozaBangou", &IninRow::口座番号, "(普) "},
             Row{"cKozaMeigi1", &IninRow::口座名義, ""},
             Row{"nDate", &IninRow::最終施術日, "2024/04/30"},
             Row{"cSubAddress", &IninRow::保険者地区名, ""},
             Row{"HOKENSHUBETSU", &IninRow::保険種別, ""},
             Row{"cSetaiName", &IninRow::世帯主名, ""},
             Row{"RiyouSetaiTel", &IninRow::世帯主電話, ""},
             Row{"cSetaiAdress1", &IninRow::世帯主住所, ""},
         }) {
        PrintFixture fixture;
        fixture.answer(patients({{{row.column, Null{}}}}));
        CAPTURE(row.column);
        REQUIRE(fixture.form.iGetKanjaDataMonth() == 0);
        CHECK(fixture.form.aIninRow.at(0).*row.field == row.text);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "a patient whose company row is missing has a letter with empty company texts")
{
    answer(patients({{{"CorpName", Null{}},
                      {"CorpAdd", Null{}},
                      {"cDaihyo", Null{}},
                      {"cTelNo", Null{}},
                      {"cKinyuName", Null{}},
                      {"cKinyuSiten", Null{}},
                      {"iKozaType", Null{}},
                      {"cKozaBangou", Null{}},
                      {"cKozaMeigi1", Null{}},
                      {"iKinSyubetsu", Null{}},
                      {"iKinSiten", Null{}}}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    const IninRow &letter = form.aIninRow.at(0);
    CHECK(letter.利用者氏名 == "利用　花子");
    CHECK(letter.会社名称 == "");
    CHECK(letter.金融機関名 == "  ");
    CHECK(letter.金融機関名２ == "");
    CHECK(letter.口座番号 == " ");
}

TEST_CASE_FIXTURE(PrintFixture, "texts keep the blanks on both sides")
{
    answer(patients({{{"RiyouName", "  花子  "}}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).利用者氏名 == "  花子  ");
}

TEST_CASE("a non-numeric value in a number column counts as 0")
{
    struct Row {
        const char *column;
        Variant value;
        IninField field;
        const char *text;
    };
    for (const Row &row : {
             Row{"iKinSyubetsu", "二", &IninRow::金融機関名, "みどり  中央本店"},
             Row{"iKinSiten", "", &IninRow::金融機関名, "みどり金庫  中央"},
             Row{"iKozaType", "普通", &IninRow::口座番号, " 1234567"},
             Row{"iKozaType", 2147483648.0, &IninRow::口座番号, " 1234567"},
             // A 32-bit number, unlike the two neighbouring kinds: 40000 is an unknown type, not an overflow.
             Row{"iKozaType", std::int32_t{40000}, &IninRow::口座番号, " 1234567"},
             Row{"iKozaType", 1.5, &IninRow::口座番号, "(当) 1234567"},
             Row{"iKozaType", 2.5, &IninRow::口座番号, "(当) 1234567"},
             Row{"iKozaType", "3", &IninRow::口座番号, "(通) 1234567"},
             Row{"nDate", "x", &IninRow::最終施術日, "2024/04/30"},
         }) {
        PrintFixture fixture;
        fixture.answer(patients({{{row.column, row.value}}}));
        CAPTURE(row.column);
        CAPTURE(row.text);
        REQUIRE(fixture.form.iGetKanjaDataMonth() == 0);
        CHECK(fixture.form.aIninRow.at(0).*row.field == row.text);
    }
}

TEST_CASE("a kind beyond 16 bits ends the extraction with an overflow")
{
    for (const char *column : {"iKinSyubetsu", "iKinSiten"})
        for (const std::int32_t kind : {40000, 32768, -32769}) {
            PrintFixture fixture;
            fixture.answer(patients({{{column, kind}}}));
            CAPTURE(column);
            CAPTURE(kind);
            CHECK(fixture.form.iGetKanjaDataMonth() == -1);
            CHECK(fixture.onlyBox() == centralBox("6", "オーバーフローしました。", "iGetKanjaDataMonth"));
        }
}

TEST_CASE_FIXTURE(PrintFixture, "a kind at the limits of 16 bits has no word")
{
    answer(patients({{{"iKinSyubetsu", std::int32_t{32767}}, {"iKinSiten", std::int32_t{-32768}}}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).金融機関名 == "みどり  中央");
}

TEST_CASE_FIXTURE(PrintFixture, "a value without a text form ends the extraction with a type mismatch")
{
    answer(patients({{{"cSubAddress", Binary{std::byte{1}}}}}));

    CHECK(form.iGetKanjaDataMonth() == -1);
    CHECK(onlyBox() == centralBox("13", "型が一致しません。", "iGetKanjaDataMonth"));
}

TEST_CASE("the last planned visit gives a date even if its digits are not a valid day")
{
    struct Row {
        const char *csTargetDate;
        std::int32_t nDate;
        const char *text;
    };
    for (const Row &row : {Row{"2024/05/1", 20240528, "2024/05/28"}, Row{"2024/05/1", 20240500, "2024/04/30"},
                           Row{"2024/05/1", 20240532, "2024/06/01"}, Row{"2024/05/1", 20240531, "2024/05/31"},
                           Row{"2024/02/1", 20240229, "2024/02/29"}, Row{"2023/02/1", 20230229, "2023/03/01"},
                           Row{"2024/12/1", 20241232, "2025/01/01"}, Row{"2024/01/1", 20240100, "2023/12/31"},
                           Row{"2024/05/1", 20240599, "2024/08/07"}}) {
        PrintFixture fixture;
        fixture.form.csTargetDate = row.csTargetDate;
        fixture.answer(patients({{{"nDate", row.nDate}}}));
        CAPTURE(row.nDate);
        REQUIRE(fixture.form.iGetKanjaDataMonth() == 0);
        CHECK(fixture.form.aIninRow.at(0).最終施術日 == row.text);
    }
}

TEST_CASE("the last actual visit has a two-digit year")
{
    struct Row {
        const char *what;
        Variant visit;
        const char *text;
    };
    for (const Row &row :
         {Row{"a date and time", DateSerial(2024, 5, 7), "24/05/07"},
          Row{"a time of day", Date(45419.4375), "24/05/07"}, Row{"the text of one", "2024/05/28 10:30:00", "24/05/28"},
          Row{"NULL", Null{}, ""}, Row{"an empty text", "", ""}}) {
        PrintFixture fixture;
        fixture.answer(patients({{{"tServicyDayStart", row.visit}}}));
        CAPTURE(row.what);
        REQUIRE(fixture.form.iGetKanjaDataMonth_Jisseki() == 0);
        CHECK(fixture.form.aIninRow.at(0).最終施術日 == row.text);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "the letter of a day extraction has the target date unchanged")
{
    form.csTargetDate = "2024/05/28";
    answer(patients({{}}));
    world.database.resultsByText = {{"SELECT * FROM SCHEDULE", visits("nDate", {std::int32_t{20240528}})}};
    REQUIRE(form.iGetKanjaDataDay() == 0);

    CHECK(form.aIninRow.at(0).最終施術日 == "2024/05/28");
}

TEST_CASE_FIXTURE(PrintFixture, "a letter without a period has the period's end as last treatment day")
{
    form.iDspPeriodKind = 2;
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataNoPeriod() == 0);

    CHECK(form.aIninRow.at(0).最終施術日 == "2024/09/09");
}

TEST_CASE_FIXTURE(PrintFixture, "an entered period with an automatic signature is signed on the period's first day")
{
    form.iDspPeriodKind = 2;
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).対象開始日 == "2024/04/10");
    CHECK(form.aIninRow.at(0).対象終了日 == "2024/09/09");
    CHECK(form.aIninRow.at(0).署名日 == "2024/04/10");
}

TEST_CASE_FIXTURE(PrintFixture, "an entered signature date is used whatever the period")
{
    form.iSyomeiKind = 1;
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).対象開始日 == "2024/05/01");
    CHECK(form.aIninRow.at(0).署名日 == "2024/06/03");
}

TEST_CASE("only period kind 1 is the whole month, and only signature kind 0 is automatic")
{
    struct Row {
        std::int16_t iDspPeriodKind, iSyomeiKind;
        const char *start, *end, *signature;
    };
    for (const Row &row :
         {Row{1, 0, "2024/05/01", "2024/05/31", "2024/05/01"}, Row{0, 0, "2024/04/10", "2024/09/09", "2024/04/10"},
          Row{3, 2, "2024/04/10", "2024/09/09", "2024/06/03"}, Row{-1, -1, "2024/04/10", "2024/09/09", "2024/06/03"}}) {
        PrintFixture fixture;
        fixture.form.iDspPeriodKind = row.iDspPeriodKind;
        fixture.form.iSyomeiKind = row.iSyomeiKind;
        fixture.answer(patients({{}}));
        CAPTURE(row.iDspPeriodKind);
        REQUIRE(fixture.form.iGetKanjaDataMonth() == 0);
        CHECK(fixture.form.aIninRow.at(0).対象開始日 == row.start);
        CHECK(fixture.form.aIninRow.at(0).対象終了日 == row.end);
        CHECK(fixture.form.aIninRow.at(0).署名日 == row.signature);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "a period whose end is before its start is used unchanged")
{
    form.iDspPeriodKind = 2;
    form.imSetDateTo.Value = DateSerial(2020, 1, 1);
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).対象開始日 == "2024/04/10");
    CHECK(form.aIninRow.at(0).対象終了日 == "2020/01/01");
}

TEST_CASE_FIXTURE(PrintFixture, "the whole month of December ends on the 31st")
{
    form.csTargetDate = "2024/12/1";
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).対象開始日 == "2024/12/01");
    CHECK(form.aIninRow.at(0).対象終了日 == "2024/12/31");
}

TEST_CASE_FIXTURE(PrintFixture, "the default date texts of a letter follow the short-date setting")
{
    world.app.regional.shortDate = "dd.MM.yyyy";
    answer(patients({{}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).対象開始日 == "2024/05/01");
    CHECK(form.aIninRow.at(0).対象終了日 == "31.05.2024");
    CHECK(form.aIninRow.at(0).最終施術日 == "28.05.2024");
}

TEST_CASE_FIXTURE(PrintFixture, "two rows for one patient are two letters in the order of the database")
{
    answer(patients({{{"RiyouName", "乙"}}, {{"RiyouName", "甲"}}, {{"RiyouName", "乙"}}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    REQUIRE(form.iRowCount == 3);
    CHECK(form.aIninRow.at(0).利用者氏名 == "乙");
    CHECK(form.aIninRow.at(1).利用者氏名 == "甲");
    CHECK(form.aIninRow.at(2) == form.aIninRow.at(0));
}

TEST_CASE_FIXTURE(PrintFixture, "a visit column that is selected twice is read once, at its first place")
{
    FakeResult twice = patients({{}});
    twice.columns.insert(twice.columns.begin(), "nDate");
    twice.rows.at(0).insert(twice.rows.at(0).begin(), std::int32_t{20240503});
    answer(twice);
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    CHECK(form.aIninRow.at(0).最終施術日 == "2024/05/03");
}

} // namespace inin

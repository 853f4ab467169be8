#include "master/shinseisyo_table.h"

#include "master/embedded_fixture.h"

using namespace inin;

// The claim forms on the embedded database: rows are written and read back.

namespace {

using EmbeddedFormFixture = EmbeddedFixture<cT_SHINSEISYO>;

cD_SHINSEISYO form(std::int32_t iPrintType, std::int32_t nIDNo, const std::string &cDispName = "申請書")
{
    cD_SHINSEISYO row;
    row.iPrintType = iPrintType;
    row.nIDNo = nIDNo;
    row.cDispName = cDispName;
    return row;
}

void insert(EmbeddedFormFixture &forms, const cD_SHINSEISYO &row)
{
    REQUIRE_MESSAGE(forms->iDataInsert(&row, 0, Transaction::own) == iGood, forms->sErrMsg());
}

/// The numbers of the rows read, joined: "1 2 3".
std::string numbers(EmbeddedFormFixture &forms)
{
    std::string text;
    for (std::int32_t index = 0; index < forms->nデータ数(); ++index)
        text += (index == 0 ? "" : " ") + std::to_string(forms->clsSHINSEISYO(index).nIDNo);
    return text;
}

std::string read(EmbeddedFormFixture &forms, const cD_SHINSEISYO &condition)
{
    REQUIRE_MESSAGE(forms->iDataRead(&condition) == iGood, forms->sErrMsg());
    return numbers(forms);
}

std::string readGrid(EmbeddedFormFixture &forms, const cD_SHINSEISYO &condition)
{
    REQUIRE_MESSAGE(forms->iDataReadGrid(&condition) == iGood, forms->sErrMsg());
    return numbers(forms);
}

} // namespace

TEST_CASE("a claim form is read back as written")
{
    EmbeddedFormFixture forms;
    cD_SHINSEISYO row = form(2, 5, "療養費支給申請書");
    row.cFileName = "申請書.wfd";
    row.iStateNo = 37;
    row.iDelFlg = 1;
    row.iTekiyouStaff = 9;
    insert(forms, row);
    REQUIRE(read(forms, row) == "5");
    const cD_SHINSEISYO &found = forms->clsSHINSEISYO(0);
    CHECK(found.cFileName == "申請書.wfd");
    CHECK(found.cDispName == "療養費支給申請書");
    CHECK(found.iStateNo == 37);
    CHECK(found.iDelFlg == 1);
    CHECK(found.iTekiyouStaff == 9);
    CHECK(found.iKyotenCd == 1);
    CHECK(found.iKyotenEb == 2);
    CHECK_FALSE(found.tUpDateTime.empty());
}

TEST_CASE("a system-wide claim form is read by every site, any other only by its own")
{
    EmbeddedFormFixture forms;
    insert(forms, form(1, 1));
    insert(forms, form(2, 2));
    CHECK(forms.value("SELECT iKyotenCd || '/' || iKyotenEb FROM SHINSEISYO WHERE iPrintType = 1") == "0/0");

    for (const std::int16_t subCode : {std::int16_t{2}, std::int16_t{3}}) {
        forms.site.iKyotenEb = subCode;
        CHECK(read(forms, form(1, -1)) == "1");
        CHECK(readGrid(forms, form(1, 0)) == "1");
        CHECK(read(forms, form(2, -1)) == (subCode == 2 ? "2" : ""));
        CHECK(readGrid(forms, form(2, 0)) == (subCode == 2 ? "2" : ""));
    }
}

TEST_CASE("number -1 reads all claim forms of the print type and number 0 reads number 0")
{
    EmbeddedFormFixture forms;
    for (const std::int32_t nIDNo : {3, 1, 0}) insert(forms, form(2, nIDNo));
    insert(forms, form(3, 8));
    CHECK(read(forms, form(2, -1)) == "0 1 3");
    CHECK(read(forms, form(2, 0)) == "0");
    CHECK(read(forms, form(2, 4)).empty());
}

TEST_CASE("the grid hides deleted claim forms unless requested, and NULL is not deleted")
{
    EmbeddedFormFixture forms;
    forms.run("INSERT INTO SHINSEISYO (iKyotenCd, iKyotenEb, nIDNo, iPrintType, iDelFlg, iStateNo) VALUES"
              " (1,2,1,2,0,37), (1,2,2,2,1,37), (1,2,3,2,NULL,13)");
    cD_SHINSEISYO condition = form(2, 0);
    CHECK(readGrid(forms, condition) == "1 3");
    condition.iDelFlg = 1;
    CHECK(readGrid(forms, condition) == "1 2 3");
    condition.iStateNo = 37;
    CHECK(readGrid(forms, condition) == "1 2");
}

TEST_CASE("an update of a claim form changes only the one of its print type and site")
{
    EmbeddedFormFixture forms;
    forms.run("INSERT INTO SHINSEISYO (iKyotenCd, iKyotenEb, nIDNo, iPrintType, cDispName) VALUES"
              " (1,2,1,2,'own'), (1,2,1,3,'other type'), (9,9,1,2,'other site'), (0,0,1,1,'wide')");
    const cD_SHINSEISYO own = form(2, 1, "新"), wide = form(1, 1, "全社");
    REQUIRE(forms->iDataUpdate(&own, 0, Transaction::own) == iGood);
    REQUIRE(forms->iDataUpdate(&wide, 0, Transaction::own) == iGood);
    CHECK(forms.value("SELECT group_concat(cDispName, ',') FROM"
                      " (SELECT cDispName FROM SHINSEISYO ORDER BY iKyotenCd, iKyotenEb, iPrintType)") ==
          "全社,新,other type,other site");
}

TEST_CASE("a delete of a claim form removes only the one of its print type and site")
{
    EmbeddedFormFixture forms;
    forms.run("INSERT INTO SHINSEISYO (iKyotenCd, iKyotenEb, nIDNo, iPrintType) VALUES"
              " (1,2,1,2), (1,2,1,3), (9,9,1,2), (0,0,1,1)");
    const cD_SHINSEISYO own = form(2, 1), wide = form(1, 1);
    REQUIRE(forms->iData削除(&own, 0, Transaction::own) == iGood);
    REQUIRE(forms->iData削除(&wide, 0, Transaction::own) == iGood);
    CHECK(forms.value("SELECT group_concat(iKyotenCd || iPrintType, ',') FROM"
                      " (SELECT * FROM SHINSEISYO ORDER BY iKyotenCd)") == "13,92");
}

TEST_CASE("the highest number of a claim form is that of its print type and site")
{
    EmbeddedFormFixture forms;
    forms.run("INSERT INTO SHINSEISYO (iKyotenCd, iKyotenEb, nIDNo, iPrintType) VALUES"
              " (1,2,4,2), (9,9,90,2), (0,0,7,1)");
    std::int32_t nMaxNo = -1;
    CHECK(forms->iGetMaxIDNo(nMaxNo, 2) == iGood);
    CHECK(nMaxNo == 4);
    CHECK(forms->iGetMaxIDNo(nMaxNo, 1) == iGood);
    CHECK(nMaxNo == 7);
    CHECK(forms->iGetMaxIDNo(nMaxNo, 0) == iGood);
    CHECK(nMaxNo == 0);
}

TEST_CASE("a claim form with existing keys is refused and changes nothing")
{
    EmbeddedFormFixture forms;
    insert(forms, form(2, 1, "first"));
    const cD_SHINSEISYO again = form(2, 1, "second");
    CHECK(forms->iDataInsert(&again, 0, Transaction::own) == iBad);
    CHECK(forms->sErrMsg().starts_with("ERR:iExecSQL (-2147217873)"));
    CHECK(forms.value("SELECT cDispName FROM SHINSEISYO") == "first");
}

TEST_CASE("a quote in a claim form's name breaks the statement and is refused")
{
    EmbeddedFormFixture forms;
    const cD_SHINSEISYO row = form(2, 1, "O'Neil");
    CHECK(forms->iDataInsert(&row, 0, Transaction::own) == iBad);
    CHECK(forms->sErrMsg().starts_with("ERR:iExecSQL (-2147217900)"));
    CHECK(forms.value("SELECT COUNT(*) FROM SHINSEISYO") == "0");
}

#include "master/table_contract.h"

#include "master/table_fixture.h"
#include "support/errors.h"
#include "support/faulty_database.h"

#include <array>

using namespace inin;

// The contract on a table of its own, with rules that not every table of the suite uses.

namespace {

struct SampleRow {
    std::string cFileName;
    std::int32_t nIDNo = 0;
    std::int16_t iRate = 0;
    std::int32_t iPrintType = 0;
    std::string tUpDateTime;
};

using enum WrittenAs;
using enum ValueFrom;

constexpr TableShape kStrict{"SAMPLE"};
constexpr TableShape kForgiving{"SAMPLE", 0, Unreadable::countsAsZero};

constexpr TableColumn<SampleRow> kSampleColumns[] = {
    {"iKyotenCd", {}, quoted, siteCode, OnUpdate::kept},
    {"nIDNo", &SampleRow::nIDNo, number, row, OnUpdate::kept},
    {"cFileName", &SampleRow::cFileName, quoted},
    {"iRate", &SampleRow::iRate, number},
    {"tUpDateTime", &SampleRow::tUpDateTime, serverTime},
    {"iPrintType", &SampleRow::iPrintType, number, row, OnUpdate::kept},
    {"cBranch", {}, never},
};

/// A table class of four lines.
class SampleTable {
public:
    explicit SampleTable(App &app, const TableShape &shape = kStrict) : m_table(app, shape) {}
    std::int16_t iInit(cT_ADODB &session) { return m_table.init(session); }
    std::int16_t read()
    {
        return m_table.trapped([&] {
            return m_table.read("SELECT", {&kSampleColumns[1], &kSampleColumns[2], &kSampleColumns[3]});
        });
    }
    std::int16_t maximum(std::int32_t &result)
    {
        return m_table.trapped([&] { return m_table.number("MAX", "nIDNo", result); });
    }
    std::int16_t write(const AfterExecution &afterExecution)
    {
        return m_table.trapped([&] { return m_table.write("INSERT", Transaction::own, afterExecution); });
    }
    const std::string &sErrMsg() const { return m_table.sErrMsg(); }
    std::int32_t count() const { return m_table.count(); }
    const SampleRow &row(std::int32_t index) const { return m_table.row(index); }

private:
    TableContract<SampleRow> m_table;
};

struct ForgivingTable : SampleTable {
    explicit ForgivingTable(App &app) : SampleTable(app, kForgiving) {}
};

template <class Table> void answer(TableFixture<Table> &fixture, const std::vector<GivenRow> &rows)
{
    fixture.database.results.push_back(rowsOf({"nIDNo", "cFileName", "iRate"}, rows));
}

/// A table whose record sets can fail.
struct FaultyFixture : FaultyWorld {
    FaultyFixture()
    {
        REQUIRE(session.iInit("Provider=Fake") == iGood);
        REQUIRE(session.iConnect() == iGood);
        REQUIRE(table.iInit(session) == iGood);
    }
    cT_ADODB session{faultyApp};
    SampleTable table{faultyApp};
};

} // namespace

TEST_CASE("a row outside the last read is the runtime's subscript error and keeps the error text")
{
    TableFixture<SampleTable> sample;
    answer(sample, {{}, {}});
    REQUIRE(sample->read() == iGood);
    for (const std::int32_t index : {-1, 2, 2147483647}) {
        CAPTURE(index);
        CHECK(errorOf([&] { static_cast<void>(sample->row(index)); }) == 9);
    }
    CHECK(sample->sErrMsg().empty());
}

TEST_CASE("a new session clears the rows")
{
    TableFixture<SampleTable> sample;
    answer(sample, {{}});
    REQUIRE(sample->read() == iGood);
    CHECK(sample->iInit(sample.session) == iGood);
    CHECK(sample->count() == 0);
}

TEST_CASE("a read before a session is set is the runtime's error 91")
{
    FakeWorld world;
    SampleTable table{world.app};
    CHECK(table.read() == iBad);
    CHECK(table.sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
}

TEST_CASE("a failed opening keeps the rows of the last read")
{
    TableFixture<SampleTable> sample;
    answer(sample, {{}});
    REQUIRE(sample->read() == iGood);
    sample.database.results.push_back(failure(-2147467259, "切れました。"));
    CHECK(sample->read() == iBad);
    CHECK(sample->sErrMsg() == "(-2147467259)切れました。\rSQL=SELECT");
    CHECK(sample->count() == 1);
}

TEST_CASE("an error at the very first row keeps no rows of the last read")
{
    TableFixture<SampleTable> sample;
    answer(sample, {{}, {}});
    REQUIRE(sample->read() == iGood);
    answer(sample, {{{"nIDNo", "語"}}});
    CHECK(sample->read() == iBad);
    CHECK(sample->count() == 0);
}

TEST_CASE("of several columns that do not convert, the first in the list is reported")
{
    TableFixture<SampleTable> sample;
    answer(sample, {{{"nIDNo", 3000000000.0}, {"iRate", "語"}}});
    CHECK(sample->read() == iBad);
    CHECK(sample->sErrMsg() == "6\r\nオーバーフローしました。");
}

TEST_CASE("numbers round to even and ignore blanks")
{
    TableFixture<SampleTable> sample;
    answer(sample, {{{"nIDNo", 2.5}, {"iRate", " 3.5 "}}});
    REQUIRE(sample->read() == iGood);
    CHECK(sample->row(0).nIDNo == 2);
    CHECK(sample->row(0).iRate == 4);
}

TEST_CASE("a column missing in every result is an error at the first row, not in an empty result")
{
    TableFixture<SampleTable> sample;
    sample.database.results.push_back(rowsOf({"other"}, {}));
    CHECK(sample->read() == iGood);
    sample.database.results.push_back(rowsOf({"other"}, {{}}));
    CHECK(sample->read() == iBad);
    CHECK(sample->sErrMsg() == "3265\r\n要求された名前、または序数に対応する項目がコレクションで見つかりません。");
}

TEST_CASE("a tolerant table reads anything that is not a 32-bit number as 0")
{
    TableFixture<ForgivingTable> sample;
    answer(sample, {{{"nIDNo", "語"}}, {{"nIDNo", 3000000000.0}}, {{"nIDNo", " 12 "}}});
    REQUIRE(sample->read() == iGood);
    CHECK(sample->row(0).nIDNo == 0);
    CHECK(sample->row(1).nIDNo == 0);
    CHECK(sample->row(2).nIDNo == 12);
}

TEST_CASE("a read closes its record set in every case")
{
    TableFixture<SampleTable> fixture;
    fixture.database.results.push_back(rowsOf({"nIDNo", "cFileName", "iRate"}, {{}, {}}));
    CHECK(fixture->read() == iGood);
    CHECK(fixture.database.openRecordsets == 0);
    CHECK(fixture.database.lastOpening == std::array<std::int32_t, 3>{0, 1, 1});

    fixture.database.results.push_back(rowsOf({"nIDNo", "cFileName", "iRate"}, {{{"nIDNo", "語"}}}));
    CHECK(fixture->read() == iBad);
    CHECK(fixture.database.openRecordsets == 0);

    FakeResult lost = rowsOf({"nIDNo", "cFileName", "iRate"}, {{}, {}});
    lost.failingMove = 1;
    fixture.database.results.push_back(lost);
    CHECK(fixture->read() == iBad);
    CHECK(fixture.database.openRecordsets == 0);

    fixture.database.results.push_back(rowsOf({"nIDNo"}, {{{"nIDNo", "語"}}}));
    std::int32_t result = 0;
    CHECK(fixture->maximum(result) == iBad);
    CHECK(fixture.database.openRecordsets == 0);
}

TEST_CASE("a record set that does not close hides neither the rows nor the first error")
{
    FaultyFixture fixture;
    fixture.faulty.faults.close = 3704;
    fixture.database.results.push_back(rowsOf({"nIDNo", "cFileName", "iRate"}, {{}, {}}));
    CHECK(fixture.table.read() == iGood);
    CHECK(fixture.table.count() == 2);

    fixture.database.results.push_back(rowsOf({"nIDNo", "cFileName", "iRate"}, {{{"nIDNo", "語"}}}));
    CHECK(fixture.table.read() == iBad);
    CHECK(fixture.table.sErrMsg() == "13\r\n型が一致しません。");
}

TEST_CASE("an aggregate without its row is the runtime's error")
{
    TableFixture<SampleTable> sample;
    std::int32_t result = 7;
    CHECK(sample->maximum(result) == iBad);
    CHECK(sample->sErrMsg().starts_with("3021\r\n"));
    CHECK(result == 7);
}

TEST_CASE("a run-time error between statement and commit fails the write and rolls it back")
{
    TableFixture<SampleTable> sample;
    CHECK(sample->write([](std::string &) -> std::int16_t { throw RuntimeError(53); }) == iBad);
    CHECK(sample->sErrMsg() == "53\r\nファイルが見つかりません。");
    CHECK(sample.database.log == Log{"begin 1", "exec 1 INSERT", "rollback 1"});
}

TEST_CASE("the branch of a statement can differ from that of the installation")
{
    SampleRow row;
    row.nIDNo = 3;
    row.cFileName = "a.wfd";
    row.iRate = 4;
    row.iPrintType = 1;
    CHECK(insertStatement(kStrict, kSampleColumns, row, {Branch{0, 0}, {}}) ==
          " insert into    SAMPLE (      iKyotenCd     ,nIDNo     ,cFileName     ,iRate     ,tUpDateTime"
          "     ,iPrintType )values(       '0'     ,3     ,'a.wfd'     ,4     ,GetDate()     ,1 ) ");
}

TEST_CASE("an update begins with the first column that it sets, and keys are unchanged")
{
    SampleRow row;
    row.nIDNo = 3;
    row.cFileName = "a.wfd";
    CHECK(updateStatement(kStrict, kSampleColumns, row, {}) ==
          " update      SAMPLE set       cFileName = 'a.wfd'     ,iRate =  0     ,tUpDateTime = GetDate()");
}

TEST_CASE("a condition starts with where and continues with and")
{
    Condition condition;
    CHECK(condition.text().empty());
    condition.add(" a = 1");
    CHECK(condition.text() == " where a = 1");
    condition.add("    b = 2");
    CHECK(condition.text() == " where a = 1 and    b = 2");
}

#include "master/corp_table.h"
#include "master/hoken_table.h"
#include "master/shinseisyo_table.h"
#include "master/staff_table.h"

#include "master/table_fixture.h"

#include <array>

using namespace inin;

// The behaviour common to the writes of all tables: the transaction, the failures and their texts. Each case runs for
// the insert, the update and the delete of each table.

namespace {

template <class TableOfKind, class RowOfKind> struct Kind {
    using Table = TableOfKind;
    using Row = RowOfKind;
    using Write = std::int16_t (Table::*)(const Row *, std::int32_t, Transaction);
    static constexpr std::array<Write, 3> kWrites = {&Table::iDataInsert, &Table::iDataUpdate, &Table::iData削除};
};
using Hoken = Kind<cT_HOKEN, cD_HOKEN>;
using Staff = Kind<cT_STAFF, cD_STAFF>;
using Corp = Kind<cT_CORP, cD_CORP>;
using Shinseisyo = Kind<cT_SHINSEISYO, cD_SHINSEISYO>;

template <class K> struct WriteFixture : TableFixture<typename K::Table> {
    std::int16_t run(typename K::Write write, Transaction flag) { return (this->table.*write)(&row, 0, flag); }
    [[nodiscard]] const std::string &words() const { return this->table.sErrMsg(); }
    /// The log with statements reduced to their kind.
    [[nodiscard]] Log steps() const
    {
        Log steps;
        for (const std::string &line : this->database.log) steps.push_back(line.substr(0, line.find(' ')));
        return steps;
    }
    /// The complete statement as sent.
    [[nodiscard]] std::string statement() const
    {
        for (const std::string &line : this->database.log)
            if (line.starts_with("exec 1 ")) return line.substr(7);
        return {};
    }

    typename K::Row row;
};

constexpr const char *kSyntax = "構文が正しくありません。";

} // namespace

TEST_CASE_TEMPLATE("a write without the flag sends its statement and no transaction call", K, Hoken, Staff, Corp,
                   Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        CHECK(fixture.run(write, Transaction::ofTheCaller) == iGood);
        CHECK(fixture.steps() == Log{"exec"});
        CHECK(fixture.words().empty());
    }
}

TEST_CASE_TEMPLATE("a write with the flag begins and commits around its statement", K, Hoken, Staff, Corp, Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        CHECK(fixture.run(write, Transaction::own) == iGood);
        CHECK(fixture.steps() == Log{"begin", "exec", "commit"});
    }
}

TEST_CASE_TEMPLATE("without the flag a write leaves the transaction to the caller", K, Hoken, Staff, Corp, Shinseisyo)
{
    WriteFixture<K> fixture;
    CHECK(fixture->iDataInsert(&fixture.row, 0) == iGood);
    CHECK(fixture->iDataUpdate(&fixture.row, 0) == iGood);
    CHECK(fixture->iData削除(&fixture.row, 0) == iGood);
    CHECK(fixture.steps() == Log{"exec", "exec", "exec"});
}

TEST_CASE_TEMPLATE("the options of a write have no effect", K, Hoken, Staff, Corp, Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> plain, other;
        CHECK((plain.table.*write)(&plain.row, 0, Transaction::own) == iGood);
        CHECK((other.table.*write)(&other.row, -2147483647, Transaction::own) == iGood);
        CHECK(plain.database.log == other.database.log);
    }
}

TEST_CASE_TEMPLATE("a write that cannot begin fails with the session's text and sends nothing", K, Hoken, Staff, Corp,
                   Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        fixture.database.beginError = -2147467259;
        CHECK(fixture.run(write, Transaction::own) == iBad);
        CHECK(fixture.words() == "ERR:BeginTrans (-2147467259)トランザクションの失敗。");
        CHECK(fixture.steps() == Log{"begin"});
    }
}

TEST_CASE_TEMPLATE("a failed execution gives the session's text with the whole statement", K, Hoken, Staff, Corp,
                   Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        fixture.database.executions.push_back(failure(-2147217900, kSyntax));
        CHECK(fixture.run(write, Transaction::ofTheCaller) == iBad);
        CHECK(fixture.words() == "ERR:iExecSQL (-2147217900)構文が正しくありません。\rSQL=" + fixture.statement());
        // The caller owns the transaction and its rollback.
        CHECK(fixture.steps() == Log{"exec"});
    }
}

TEST_CASE_TEMPLATE("a failed execution rolls back the write's own transaction", K, Hoken, Staff, Corp, Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        fixture.database.executions.push_back(failure(-2147217873, kSyntax));
        CHECK(fixture.run(write, Transaction::own) == iBad);
        CHECK(fixture.words().starts_with("ERR:iExecSQL (-2147217873)"));
        CHECK(fixture.steps() == Log{"begin", "exec", "rollback"});
    }
}

TEST_CASE_TEMPLATE("a failed commit gives the session's text and rolls back", K, Hoken, Staff, Corp, Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        fixture.database.commitError = -2147467259;
        CHECK(fixture.run(write, Transaction::own) == iBad);
        CHECK(fixture.words() == "ERR:CommitTrans (-2147467259)トランザクションの失敗。");
        CHECK(fixture.steps() == Log{"begin", "exec", "commit", "rollback"});
    }
}

TEST_CASE_TEMPLATE("the error text of a failed write is not replaced by that of a failing rollback", K, Hoken, Staff,
                   Corp, Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        fixture.database.commitError = -2147467259;
        fixture.database.rollbackError = -2147217900;
        CHECK(fixture.run(write, Transaction::own) == iBad);
        CHECK(fixture.words() == "ERR:CommitTrans (-2147467259)トランザクションの失敗。");
    }
}

TEST_CASE_TEMPLATE("the error text of a failure is kept after a later successful write", K, Hoken, Staff, Corp,
                   Shinseisyo)
{
    WriteFixture<K> fixture;
    fixture.database.commitError = -2147467259;
    REQUIRE(fixture->iDataInsert(&fixture.row, 0, Transaction::own) == iBad);
    fixture.database.commitError = 0;
    CHECK(fixture->iDataInsert(&fixture.row, 0, Transaction::own) == iGood);
    CHECK(fixture.words() == "ERR:CommitTrans (-2147467259)トランザクションの失敗。");
}

TEST_CASE_TEMPLATE("a write without a row fails with the table's text and sends nothing", K, Hoken, Staff, Corp,
                   Shinseisyo)
{
    for (const auto write : K::kWrites) {
        WriteFixture<K> fixture;
        CHECK((fixture.table.*write)(nullptr, 0, Transaction::own) == iBad);
        CHECK(fixture.words().ends_with("が無効です。"));
        CHECK(fixture.database.log.empty());
    }
}

TEST_CASE_TEMPLATE("a write before a session is set is the runtime's error 91", K, Hoken, Staff, Corp, Shinseisyo)
{
    for (const auto write : K::kWrites) {
        FakeWorld world;
        typename K::Table table{world.app};
        const typename K::Row row;
        for (const Transaction flag : {Transaction::own, Transaction::ofTheCaller}) {
            CHECK((table.*write)(&row, 0, flag) == iBad);
            CHECK(table.sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
        }
    }
}

TEST_CASE_TEMPLATE("an insert or update on a computer without a name fails and sends nothing", K, Staff, Corp,
                   Shinseisyo)
{
    for (const auto write : {K::kWrites[0], K::kWrites[1]}) {
        WriteFixture<K> fixture;
        fixture.processes.name = std::string(250, 'x');
        CHECK(fixture.run(write, Transaction::own) == iBad);
        CHECK(fixture.words() == "コンピューター名の取得に失敗しました。");
        CHECK(fixture.database.log.empty());
    }
}

TEST_CASE_TEMPLATE("a delete needs no computer name", K, Staff, Corp, Shinseisyo)
{
    WriteFixture<K> fixture;
    fixture.processes.name = std::string(250, 'x');
    CHECK(fixture->iData削除(&fixture.row, 0, Transaction::own) == iGood);
}

TEST_CASE_TEMPLATE("a missing row is reported before a computer without a name", K, Staff, Corp, Shinseisyo)
{
    WriteFixture<K> fixture;
    fixture.processes.name = std::string(250, 'x');
    CHECK(fixture->iDataInsert(nullptr, 0) == iBad);
    CHECK(fixture.words().ends_with("が無効です。"));
}

TEST_CASE_TEMPLATE("the computer's name must fit into 250 bytes with its NUL and ends at the first one", K, Staff, Corp,
                   Shinseisyo)
{
    WriteFixture<K> fixture;
    std::string name = "前の値";
    fixture.processes.name = std::string(249, 'x');
    CHECK(fixture->iGetComputerName(name) == iGood);
    CHECK(name == std::string(249, 'x'));

    fixture.processes.name = std::string(250, 'x');
    CHECK(fixture->iGetComputerName(name) == iBad);
    CHECK(name.empty());

    fixture.processes.name = std::string("PC1\0PC2", 7);
    CHECK(fixture->iGetComputerName(name) == iGood);
    CHECK(name == "PC1");
}

TEST_CASE("each table names itself in the error about a missing row")
{
    WriteFixture<Hoken> hoken;
    CHECK(hoken->iDataInsert(nullptr, 0) == iBad);
    CHECK(hoken.words() == "HOKENが無効です。");
    WriteFixture<Staff> staff;
    CHECK(staff->iDataUpdate(nullptr, 0) == iBad);
    CHECK(staff.words() == "STAFFが無効です。");
    WriteFixture<Corp> corp;
    CHECK(corp->iData削除(nullptr, 0) == iBad);
    CHECK(corp.words() == "CORPが無効です。");
    WriteFixture<Shinseisyo> form;
    CHECK(form->iData削除(nullptr, 0) == iBad);
    CHECK(form.words() == "SHINSEISYOが無効です。");
}

TEST_CASE("a quote character in a written text is not doubled")
{
    WriteFixture<Hoken> hoken;
    hoken.row.cName = "O'Neil";
    hoken.row.iType = 1;
    CHECK(hoken->iDataInsert(&hoken.row, 0) == iGood);
    CHECK(hoken.statement() ==
          " insert into    HOKEN (      iKyotenCd     ,iKyotenEb     ,cName     ,cRyaku"
          "     ,cType     ,iType )values(       1     ,2     ,'O'Neil'     ,''     ,''     ,1 ) ");
}

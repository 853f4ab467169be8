#include "formoutput/wfd_print.h"

#include "adapters/native/native_platform.h"
#include "adapters/native/no_automation.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

using namespace inin;

namespace {

/// One call on the document, with its arguments and their types.
struct DocumentCall {
    std::string kind;
    std::string member;
    std::vector<Variant> arguments;
    friend bool operator==(const DocumentCall &, const DocumentCall &) = default;
};

/// A form tool that records the calls on its document; the member `failing` fails.
class FakeTool : public Automation {
public:
    bool isInstalled = true;
    std::string failing;
    std::vector<std::string> created;
    std::vector<DocumentCall> calls;

    std::unique_ptr<AutomationObject> create(const std::string &programId) override
    {
        if (!isInstalled) throw RuntimeError(error_number::automationCannotCreate);
        created.push_back(programId);
        return std::make_unique<Document>(*this);
    }

private:
    class Document : public AutomationObject {
    public:
        explicit Document(FakeTool &tool) : m_tool(tool) {}
        Variant get(const std::string &member) override { return note("get", member, {}); }
        void set(const std::string &member, const Variant &value) override { note("set", member, {value}); }
        Variant call(const std::string &member, std::span<const Variant> arguments) override
        {
            return note("call", member, {arguments.begin(), arguments.end()});
        }

    private:
        Variant note(const char *kind, const std::string &member, std::vector<Variant> arguments)
        {
            m_tool.calls.push_back({kind, member, std::move(arguments)});
            if (member == m_tool.failing) throw RuntimeError(-2147352567, "ファイルを開けません。");
            return std::int16_t{7};
        }
        FakeTool &m_tool;
    };
};

struct PrintFixture {
    FakeTool tool;
    cls_WfdPrint print{tool};
};

std::int16_t small(int value)
{
    return static_cast<std::int16_t>(value);
}

using Calls = std::vector<DocumentCall>;

} // namespace

TEST_CASE("the document is created by its program id and receives the title")
{
    PrintFixture fixture;
    CHECK(fixture.print.iInit("委任状") == 0);
    CHECK(fixture.tool.created == std::vector<std::string>{"wfrfv.Document.1"});
    CHECK(fixture.tool.calls == Calls{{"set", "Title", {"委任状"}}});
    CHECK(fixture.print.sErrMsg.empty());
}

TEST_CASE("each iInit creates a new document, and later calls use the last one")
{
    PrintFixture fixture;
    CHECK(fixture.print.iInit("前") == 0);
    CHECK(fixture.print.iInit("後") == 0);
    CHECK(fixture.tool.created == std::vector<std::string>{"wfrfv.Document.1", "wfrfv.Document.1"});
    CHECK(fixture.tool.calls == Calls{{"set", "Title", {"前"}}, {"set", "Title", {"後"}}});
}

TEST_CASE("an empty title is not set")
{
    PrintFixture fixture;
    CHECK(fixture.print.iInit() == 0);
    CHECK(fixture.print.iInit("") == 0);
    CHECK(fixture.tool.calls.empty());
}

TEST_CASE("each operation calls the document's members in order, with arguments of the right types")
{
    PrintFixture fixture;
    cls_WfdPrint &print = fixture.print;
    CHECK(print.iInit() == 0);
    CHECK(print.iSetDataText("データ", "C:\\TMP\\a.csv") == 0);
    CHECK(print.iSetDataTextNoTitle("データ", "C:\\TMP\\b.csv") == 0);
    CHECK(print.iOpen("C:\\SYS\\a.wfd").isEmpty());
    CHECK(print.iPreview().isEmpty());
    CHECK(print.iPrintBk().isEmpty());
    CHECK(print.iPrintDialog().isEmpty());
    CHECK(fixture.tool.calls == Calls{{"call", "SetDataText", {"データ", "C:\\TMP\\a.csv", "", "", small(0)}},
                                      {"call", "SetDataText", {"データ", "C:\\TMP\\b.csv", "", "", small(1)}},
                                      {"set", "WindowStyle", {small(4)}},
                                      {"call", "Open", {"C:\\SYS\\a.wfd"}},
                                      {"set", "ShowWindow", {small(2)}},
                                      {"call", "PrintOutBk", {"", small(0), small(0)}},
                                      {"call", "PrintOutFromDialog", {}}});
    CHECK(print.sErrMsg.empty());
}

TEST_CASE("a missing tool fails the start with its number and text")
{
    PrintFixture fixture;
    fixture.tool.isInstalled = false;
    CHECK(fixture.print.iInit("委任状") == -1);
    CHECK(fixture.print.sErrMsg == "(429)ActiveX コンポーネントはオブジェクトを作成できません。");
}

TEST_CASE("a system without automation objects fails with an error text")
{
    const auto automation = makeNoAutomation();
    cls_WfdPrint print(*automation);
    CHECK(print.iInit() == -1);
    CHECK(print.sErrMsg == "(429)ActiveX コンポーネントはオブジェクトを作成できません。");
}

namespace {

struct Operation {
    const char *member;
    std::int16_t (*run)(cls_WfdPrint &);
    std::int16_t failed;
};
/// An output operation has no status: 0 replaces the Empty that it returns.
std::int16_t emptyAsGood(const Variant &result)
{
    return result.isEmpty() ? small(0) : small(1);
}
constexpr Operation kOperations[] = {
    {"SetDataText", [](cls_WfdPrint &print) { return print.iSetDataText("a", "b"); }, -1},
    {"SetDataText", [](cls_WfdPrint &print) { return print.iSetDataTextNoTitle("a", "b"); }, -1},
    {"WindowStyle", [](cls_WfdPrint &print) { return emptyAsGood(print.iOpen("a")); }, 0},
    {"Open", [](cls_WfdPrint &print) { return emptyAsGood(print.iOpen("a")); }, 0},
    {"ShowWindow", [](cls_WfdPrint &print) { return emptyAsGood(print.iPreview()); }, 0},
    {"PrintOutBk", [](cls_WfdPrint &print) { return emptyAsGood(print.iPrintBk()); }, 0},
    {"PrintOutFromDialog", [](cls_WfdPrint &print) { return emptyAsGood(print.iPrintDialog()); }, 0},
};

} // namespace

TEST_CASE("a failure of the document is trapped and its text kept")
{
    for (const Operation &operation : kOperations) {
        CAPTURE(operation.member);
        PrintFixture fixture;
        REQUIRE(fixture.print.iInit() == 0);
        fixture.tool.failing = operation.member;
        CHECK(operation.run(fixture.print) == operation.failed);
        CHECK(fixture.print.sErrMsg == "(-2147352567)ファイルを開けません。");
        CHECK(fixture.tool.calls.back().member == operation.member);
    }
}

TEST_CASE("a title refused by the document fails the start")
{
    PrintFixture fixture;
    fixture.tool.failing = "Title";
    CHECK(fixture.print.iInit("委任状") == -1);
    CHECK(fixture.print.sErrMsg == "(-2147352567)ファイルを開けません。");
}

TEST_CASE("an operation without a document is error 91")
{
    for (const Operation &operation : kOperations) {
        CAPTURE(operation.member);
        PrintFixture fixture;
        CHECK(operation.run(fixture.print) == operation.failed);
        CHECK(fixture.print.sErrMsg == "(91)オブジェクト変数または With ブロック変数が設定されていません。");
        CHECK(fixture.tool.calls.empty());
    }
}

TEST_CASE("a later success keeps the text of the last failure")
{
    PrintFixture fixture;
    fixture.print.iPreview();
    CHECK(fixture.print.iInit() == 0);
    CHECK(fixture.print.sErrMsg == "(91)オブジェクト変数または With ブロック変数が設定されていません。");
}

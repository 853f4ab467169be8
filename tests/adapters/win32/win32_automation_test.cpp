#include "adapters/native/native_platform.h"

#include "formoutput/wfd_print.h"
#include "registry_key.h"
#include "runtime/runtime_error.h"
#include "support/temp_folder.h"
#include "system/file_path.h"
#include "system/win32_text.h"

#include <array>
#include <functional>
#include <optional>

using namespace inin;
using namespace std::string_literals;

namespace {

std::string failureOf(const std::function<void()> &body)
try {
    body();
    return "no error";
} catch (const RuntimeError &error) {
    return std::to_string(error.number()) + " " + error.description();
}

/// A class of the tests' own library, registered under a program id.
class InstalledClass {
public:
    InstalledClass(const std::wstring &programId, const std::wstring &classId)
        : m_program(programId), m_class(L"CLSID\\" + classId)
    {
        m_program.put(L"CLSID", classId);
        m_class.put(L"InprocServer32", std::filesystem::absolute(ININ_RECORDING_DOCUMENT).wstring());
        m_class.put(L"InprocServer32", L"Apartment", L"ThreadingModel");
    }

private:
    ClassesKey m_program, m_class;
};

/// The tests' form tool and what its documents record.
class InstalledTool {
public:
    InstalledTool() { SetEnvironmentVariableW(L"ININ_DOCUMENT_NOTES", wideFromUtf8(m_folder / "notes").c_str()); }
    InstalledTool(const InstalledTool &) = delete;
    InstalledTool &operator=(const InstalledTool &) = delete;
    ~InstalledTool() { SetEnvironmentVariableW(L"ININ_DOCUMENT_NOTES", nullptr); }

    /// The calls since the last time.
    std::string notes()
    {
        const std::string bytes = m_folder.bytes("notes");
        std::string news = bytes.substr(m_seen);
        m_seen = bytes.size();
        return news;
    }

private:
    TempFolder m_folder;
    std::size_t m_seen = 0;
    InstalledClass m_document{L"wfrfv.Document.1", L"{6F0A2C31-5B7E-4D52-9C11-3E8A90275401}"};
};

struct DocumentFixture {
    InstalledTool tool;
    std::unique_ptr<Automation> automation = makeSystemAutomation();
    std::unique_ptr<AutomationObject> document = automation->create("wfrfv.Document.1");

    Variant call(const std::string &member, const Variant &argument)
    {
        return document->call(member, std::array{argument});
    }
};

/// Asks the tests' library, which stays loaded, whether all its objects were released.
bool noDocumentIsAlive()
{
    static const HMODULE library = LoadLibraryW(std::filesystem::absolute(ININ_RECORDING_DOCUMENT).c_str());
    REQUIRE(library != nullptr);
    const auto canUnload =
        reinterpret_cast<HRESULT(WINAPI *)()>(reinterpret_cast<void *>(GetProcAddress(library, "DllCanUnloadNow")));
    return canUnload() == S_OK;
}

} // namespace

TEST_CASE("the form tool's document receives every operation with its arguments in order and in their types")
{
    InstalledTool tool;
    const auto automation = makeSystemAutomation();
    cls_WfdPrint print(*automation);

    CHECK(print.iInit("委任状 髙橋𠮷") == 0);
    CHECK(print.iSetDataText("データ", "C:\\SUITE\\TMP\\委任状.csv") == 0);
    CHECK(print.iSetDataTextNoTitle("データ", "C:\\SUITE\\TMP\\b.csv") == 0);
    CHECK(print.iOpen("C:\\SUITE\\SYS\\委任状37_01.wfd").isEmpty());
    CHECK(print.iPreview().isEmpty());
    CHECK(print.iPrintBk().isEmpty());
    CHECK(print.iPrintDialog().isEmpty());

    CHECK(print.sErrMsg == "");
    CHECK(tool.notes() ==
          "put Title: BSTR \"委任状 髙橋𠮷\"\n"
          "method SetDataText: BSTR \"データ\", BSTR \"C:\\SUITE\\TMP\\委任状.csv\", BSTR \"\", BSTR \"\", "
          "I2 0\n"
          "method SetDataText: BSTR \"データ\", BSTR \"C:\\SUITE\\TMP\\b.csv\", BSTR \"\", BSTR \"\", I2 1\n"
          "put WindowStyle: I2 4\n"
          "method Open: BSTR \"C:\\SUITE\\SYS\\委任状37_01.wfd\"\n"
          "put ShowWindow: I2 2\n"
          "method PrintOutBk: BSTR \"\", I2 0, I2 0\n"
          "method PrintOutFromDialog\n");
}

TEST_CASE("a tool that is not installed fails at the start with error 429")
{
    const auto automation = makeSystemAutomation();
    cls_WfdPrint print(*automation);
    CHECK(print.iInit("委任状") == -1);
    CHECK(print.sErrMsg == "(429)ActiveX コンポーネントはオブジェクトを作成できません。");
}

TEST_CASE("a tool with a missing library fails at the start with error 429")
{
    const ClassesKey program(L"wfrfv.Document.1"), server(L"CLSID\\{6F0A2C31-5B7E-4D52-9C11-3E8A90275401}");
    program.put(L"CLSID", L"{6F0A2C31-5B7E-4D52-9C11-3E8A90275401}");
    server.put(L"InprocServer32", L"C:\\removed\\tool.dll");
    const auto automation = makeSystemAutomation();
    cls_WfdPrint print(*automation);
    CHECK(print.iInit() == -1);
    CHECK(print.sErrMsg == "(429)ActiveX コンポーネントはオブジェクトを作成できません。");
}

TEST_CASE("an object without late binding is error 430")
{
    const InstalledClass faceless(L"Inin.Faceless.1", L"{6F0A2C31-5B7E-4D52-9C11-3E8A90275402}");
    const auto automation = makeSystemAutomation();
    CHECK(failureOf([&] { (void)automation->create("Inin.Faceless.1"); }) ==
          "430 クラスはオートメーションまたは予測されたインターフェイスをサポートしていません。");
    CHECK(noDocumentIsAlive());
}

TEST_CASE("every kind of value is passed in its own type")
{
    struct Row {
        Variant value;
        const char *result;
    };
    const Row rows[] = {
        {Variant(), "EMPTY"},
        {Null{}, "NULL"},
        {std::int16_t{-5}, "I2 -5"},
        {std::int32_t{70000}, "I4 70000"},
        {2.5, "R8 2.500000"},
        {Date(45413.25), "DATE 45413.250000"},
        {"", "BSTR \"\""},
        {"a\0委"s, "BSTR \"a\0委\""},
        {Binary{std::byte{0}, std::byte{255}}, "UI1[2] 0 255"},
        {Binary{}, "UI1[0]"},
    };
    DocumentFixture fixture;
    for (const Row &row : rows) {
        CAPTURE(row.result);
        fixture.call("Echo", row.value);
        const std::string result = row.value == Variant("a\0委"s) ? "BSTR \"a\0委\""s : std::string(row.result);
        CHECK(fixture.tool.notes() == "method Echo: " + result + "\n");
    }
}

TEST_CASE("every kind of value is returned as it was passed")
{
    const Variant values[] = {Variant(),
                              Null{},
                              std::int16_t{-5},
                              std::int32_t{70000},
                              2.5,
                              Date(45413.25),
                              "",
                              "a\0委\U00020BB7"s,
                              Binary{std::byte{0}, std::byte{255}},
                              Binary{}};
    DocumentFixture fixture;
    for (const Variant &value : values) {
        CAPTURE(value.value().index());
        CHECK(fixture.call("Echo", value) == value);
    }
}

TEST_CASE("a result of a type that the runtime lacks is returned in one that can represent it, an object as Empty")
{
    struct Row {
        const char *what;
        Variant value;
    };
    const Row rows[] = {
        {"true", std::int16_t{-1}},
        {"byte", std::int16_t{200}},
        {"word", std::int32_t{65535}},
        {"unsigned", 4000000000.0},
        {"single", 0.5},
        {"currency", 1.2345},
        {"reference", std::int32_t{77}},
        {"object", Variant()},
        {"error", Variant()},
        {"texts", Variant()},
        {"nothing", Variant()},
    };
    DocumentFixture fixture;
    for (const Row &row : rows) {
        CAPTURE(row.what);
        CHECK(fixture.call("Gives", row.what) == row.value);
    }
}

TEST_CASE("a failure of the object has the object's number and text")
{
    struct Row {
        const char *way;
        const char *failure;
    };
    const Row rows[] = {
        {"code", "1004 帳票 \"委任状\" を開けません。"},
        {"late", "1234 後から分かった失敗です。"},
        {"scode", "-2147467259 プリンターがありません。"},
        {"runtime", "53 ファイルが見つかりません。"},
        {"known", "6 オーバーフローしました。"},
        {"wordless", "1004 アプリケーション定義またはオブジェクト定義のエラーです。"},
        {"nothing", "440 オートメーション エラーです。"},
    };
    DocumentFixture fixture;
    for (const Row &row : rows) {
        CAPTURE(row.way);
        CHECK(failureOf([&] { fixture.call("Fails", row.way); }) == row.failure);
    }
}

TEST_CASE("a failed call has the runtime's number for the system's error")
{
    struct Row {
        const char *result; // as the object returns it
        const char *failure;
    };
    const Row rows[] = {
        {"-2147352573", "438 オブジェクトは、このプロパティまたはメソッドをサポートしていません。"},
        {"-2147352571", "13 型が一致しません。"},
        {"-2147352566", "6 オーバーフローしました。"},
        {"-2147352565", "9 インデックスが有効範囲にありません。"},
        {"-2147352562", "450 引数の数が一致していません。または不正なプロパティを指定しています。"},
        {"-2147352561", "449 引数は省略できません。"},
        {"-2147352558", "11 0 で除算しました。"},
        {"-2147467263", "445 オブジェクトはこの動作をサポートしていません。"},
        {"-2147024882", "7 メモリが不足しています。"},
        {"-2147024809", "5 プロシージャの呼び出し、または引数が不正です。"},
        {"-2147024891", "70 書き込みできません。"},
        {"-2147023174", "462 リモート サーバーがないか、使用できる状態ではありません。"},
        {"-2146828235", "53 ファイルが見つかりません。"},
    };
    DocumentFixture fixture;
    for (const Row &row : rows) {
        CAPTURE(row.result);
        CHECK(failureOf([&] { fixture.call("Fails", row.result); }) == row.failure);
    }
}

TEST_CASE("a result without a number of the runtime keeps its own, after a heading")
{
    DocumentFixture fixture;
    const std::string failure = failureOf([&] { fixture.call("Fails", "-2147418113"); });
    CHECK(failure.starts_with("-2147418113 オートメーション エラーです。"));
    CHECK_FALSE(failure.ends_with("\n"));
}

TEST_CASE("a missing member, too few arguments and a wrong type have different errors")
{
    DocumentFixture fixture;
    CHECK(failureOf([&] { fixture.call("Close", 1); }) ==
          "438 オブジェクトは、このプロパティまたはメソッドをサポートしていません。");
    CHECK(failureOf([&] { fixture.document->set("閉じる", 1); }) ==
          "438 オブジェクトは、このプロパティまたはメソッドをサポートしていません。");
    CHECK(failureOf([&] { (void)fixture.document->get("Title"); }) ==
          "438 オブジェクトは、このプロパティまたはメソッドをサポートしていません。");
    CHECK(failureOf([&] { fixture.call("SetDataText", "a"); }) ==
          "450 引数の数が一致していません。または不正なプロパティを指定しています。");
    CHECK(failureOf([&] {
              fixture.document->call("PrintOutBk", std::array<Variant, 3>{"", "", ""});
          }) == "13 型が一致しません。");
}

TEST_CASE("a member is found by its name in any case")
{
    DocumentFixture fixture;
    fixture.document->set("TITLE", "x");
    CHECK(fixture.tool.notes() == "put Title: BSTR \"x\"\n");
}

TEST_CASE("an object is released with its last owner, and outlives the port that created it")
{
    std::optional<DocumentFixture> fixture(std::in_place);
    CHECK_FALSE(noDocumentIsAlive());
    fixture->automation.reset();
    CHECK(fixture->call("Echo", 1) == Variant(1));
    CHECK(fixture->call("Gives", "object").isEmpty());
    const auto second = makeSystemAutomation()->create("wfrfv.Document.1");
    fixture->document.reset();
    CHECK_FALSE(noDocumentIsAlive());
    second->set("Title", "x");
}

TEST_CASE("no object remains after everything is released")
{
    CHECK(noDocumentIsAlive());
    {
        DocumentFixture fixture;
        cls_WfdPrint print(*fixture.automation);
        CHECK(print.iInit("a") == 0);
        CHECK(print.iInit("b") == 0);
        CHECK(failureOf([&] { fixture.call("Fails", "code"); }) != "no error");
    }
    CHECK(noDocumentIsAlive());
}

TEST_CASE("a COM object of the system is created, set and read")
{
    const auto automation = makeSystemAutomation();
    const auto words = automation->create("Scripting.Dictionary");
    words->set("CompareMode", std::int16_t{1});
    words->call("Add", std::array<Variant, 2>{"委任状", "髙橋"});
    words->call("Add", std::array<Variant, 2>{std::int16_t{37}, Null{}});
    CHECK(words->get("CompareMode") == Variant(1));
    CHECK(words->get("Count") == Variant(2));
    CHECK(words->call("Exists", std::array<Variant, 1>{"委任状"}) == Variant(std::int16_t{-1}));
    CHECK(words->call("Exists", std::array<Variant, 1>{"代理人"}) == Variant(std::int16_t{0}));
}

TEST_CASE("a COM object of the system fails with the runtime's number")
{
    const auto words = makeSystemAutomation()->create("Scripting.Dictionary");
    words->call("Add", std::array<Variant, 2>{"a", 1});
    CHECK(failureOf([&] { words->set("CompareMode", 1); }).starts_with("5 "));
    CHECK(failureOf([&] { words->call("Add", std::array<Variant, 2>{"a", 1}); }).starts_with("457 "));
    CHECK(failureOf([&] { words->call("Add", std::array<Variant, 1>{"b"}); }).starts_with("450 "));
    CHECK(failureOf([&] { (void)words->get("Title"); }).starts_with("438 "));
}

TEST_CASE("another COM object of the system finds a file whose name is not in the code page")
{
    const TempFolder folder;
    const std::string file = systemPath(folder.put("𠮷野.gif", ""));
    const auto files = makeSystemAutomation()->create("Scripting.FileSystemObject");
    CHECK(files->call("FileExists", std::array<Variant, 1>{file}) == Variant(std::int16_t{-1}));
    CHECK(files->call("GetBaseName", std::array<Variant, 1>{file}) == Variant("𠮷野"));
    CHECK(files->call("FileExists", std::array<Variant, 1>{file + "x"}) == Variant(std::int16_t{0}));
}

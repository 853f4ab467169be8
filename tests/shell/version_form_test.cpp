#include "shell/version_form.h"

#include "platform/key_codes.h"
#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <memory>
#include <string>
#include <vector>

using namespace inin;

namespace {

constexpr const char *kListedFile = "C:\\SUITE\\Sorvin.ver";

struct VersionFixture : FakeWorld {
    frmVer form{app};

    std::vector<std::string> lines()
    {
        std::vector<std::string> texts;
        for (const ListBox::Item &item : form.lstVer.items()) texts.push_back(item.text);
        return texts;
    }
    std::vector<std::string> linesOf(const std::string &file)
    {
        files.putText(kListedFile, file);
        form.load();
        return lines();
    }
};

struct FileCase {
    const char *claim;
    const char *file;
    std::vector<std::string> lines;
};

const FileCase kFiles[] = {
    {"both keys", "VERSION=Ver 3.14\nUUPDATE=2024/06/01\n", {"Ver 3.14: ", "2024/06/01: "}},
    {"the version stands first in any order", "UUPDATE=b\nVERSION=a\n", {"a: ", "b: "}},
    {"no end behind the last line", "VERSION=a\nUUPDATE=b", {"a: ", "b: "}},
    {"an empty file", "", {}},
    {"no key", "[OnlineHelp]\nADDRESS=http://help.example/\n", {}},
    {"the version alone", "VERSION=a\n", {"a: "}},
    {"the update alone", "UUPDATE=b\n", {"b: "}},
    {"a key without a value", "VERSION=\nUUPDATE=b\n", {"b: "}},
    {"a value with a comma shows the part before it", "VERSION=3,14\n", {"3: "}},
    {"a quoted line keeps its comma and loses its quotes", "\"VERSION=3,14\"\n", {"3,14: "}},
    {"a key behind other characters", "xVERSION=a\n", {"a: "}},
    {"a key behind another \"=\" gives the text behind the first one", "x=1 VERSION=2\n", {"1 VERSION=2: "}},
    {"a key behind a comma begins a field of its own", "x=1,VERSION=2\n", {"2: "}},
    {"a value with \"=\" stays whole", "VERSION=a=b\n", {"a=b: "}},
    {"a key that lacks a letter is none", "UPDATE=b\nERSION=a\n", {}},
    {"a key in lower case is none", "version=a\n", {}},
    {"a key with a blank before its \"=\" is none", "VERSION =a\n", {}},
    {"a key twice: the last one counts", "VERSION=a\nVERSION=b\n", {"b: "}},
    {"both keys in one field", "VERSION=aUUPDATE=b\n", {"aUUPDATE=b: ", "aUUPDATE=b: "}},
    {"Japanese text", "VERSION=令和６年度版\n", {"令和６年度版: "}},
};

/// Reads one block, then fails.
class BrokenFiles : public FakeFiles {
public:
    std::unique_ptr<InputFile> openForInput(const std::string &path) override
    {
        class Input : public InputFile {
        public:
            explicit Input(std::string piece) : m_piece(std::move(piece)) {}
            std::string read(std::size_t) override
            {
                if (m_piece.empty()) throw RuntimeError(error_number::deviceIo);
                return std::exchange(m_piece, {});
            }

        private:
            std::string m_piece;
        };
        return std::make_unique<Input>(bytes(path));
    }
};

} // namespace

TEST_CASE("the version window has its texts, its colour and its buttons' keys")
{
    VersionFixture fixture;
    const frmVer &form = fixture.form;
    CHECK(form.name() == "frmVer");
    CHECK(form.Caption.get() == "System Version.");
    CHECK(form.laVer.BackColor == 0x00E1F7E3);
    CHECK(form.btnReturn.Caption.get() == "戻 る");
    CHECK(form.btnReturn.Default);
    CHECK(form.btnReturn.Cancel);
    CHECK(form.lstVer.Style == ListStyle::open);
    CHECK(form.btnReturn.TabIndex == 0);
    CHECK(form.lstVer.TabIndex == 1);
    CHECK(form.mnFunc.Caption.get() == "機能(&F)");
    CHECK(form.mnF12.Caption.get() == "戻る");
    CHECK(form.mnF12.Shortcut == 123);
    CHECK(form.mnF12.Container == &form.mnFunc);
    for (const char *control : {"PicTitle", "laVer", "lstVer", "shp01", "btnReturn", "mnFunc", "mnF12"}) {
        CAPTURE(control);
        CHECK(form.find(control) != nullptr);
    }
}

TEST_CASE("the list shows each value of the version file followed by a colon and a blank")
{
    for (const FileCase &each : kFiles) {
        CAPTURE(each.claim);
        VersionFixture fixture;
        CHECK(fixture.linesOf(each.file) == each.lines);
    }
}

TEST_CASE("a missing version file leaves the list empty without a message")
{
    VersionFixture fixture;
    fixture.form.load();
    CHECK(fixture.lines().empty());
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("the version file is found under a different spelling of its name")
{
    VersionFixture fixture;
    fixture.files.putText("C:\\SUITE\\SORVIN.VER", "VERSION=a\n");
    fixture.form.load();
    CHECK(fixture.lines() == std::vector<std::string>{"a: "});
}

TEST_CASE("lines without an owner are shown for every program and for none")
{
    for (const std::int16_t iSystemId : {std::int16_t{0}, std::int16_t{55}, std::int16_t{56}}) {
        CAPTURE(iSystemId);
        VersionFixture fixture;
        fixture.form.iSystemId = iSystemId;
        CHECK(fixture.linesOf("VERSION=a\n") == std::vector<std::string>{"a: "});
    }
}

TEST_CASE("the charges of 2019 are shown as the third line if they apply")
{
    struct Flag {
        std::int16_t iTankaKaitei;
        std::vector<std::string> lines;
    };
    for (const Flag &flag : {Flag{0, {"a: "}}, Flag{-1, {"a: "}}, Flag{1, {"a: ", "※令和元年 単価変更対応済: "}}}) {
        CAPTURE(flag.iTankaKaitei);
        VersionFixture fixture;
        fixture.app.iTankaKaitei = flag.iTankaKaitei;
        CHECK(fixture.linesOf("VERSION=a\n") == flag.lines);
    }
}

TEST_CASE("a window that is loaded a second time shows its lines once")
{
    VersionFixture fixture;
    CHECK(fixture.linesOf("VERSION=a\n").size() == 1);
    fixture.form.unload();
    fixture.form.load();
    CHECK(fixture.lines() == std::vector<std::string>{"a: "});
}

TEST_CASE("the version file is returned completely, its fields joined by CR LF")
{
    VersionFixture fixture;
    fixture.files.putText(kListedFile, "[a]\nVERSION=3,14\n\"x\"\nlast");
    std::string csVersion = "old version";
    std::string csUpdate = "old update";
    CHECK(fixture.form.csGetVersionFile(csVersion, csUpdate) == "[a]\r\nVERSION=3\r\n14\r\nx\r\nlast\r\n");
    CHECK(csVersion == "3");
    CHECK(csUpdate == "old update");
}

TEST_CASE("a missing version file gives the empty text and leaves the two texts unchanged")
{
    VersionFixture fixture;
    std::string csVersion = "old version";
    std::string csUpdate = "old update";
    CHECK(fixture.form.csGetVersionFile(csVersion, csUpdate).empty());
    CHECK(csVersion == "old version");
    CHECK(csUpdate == "old update");
}

TEST_CASE("a read that fails in the middle keeps the texts already read, without a message")
{
    FakeWorld world;
    BrokenFiles files;
    files.putText(kListedFile, "VERSION=a\nUUP");
    const Platform platform{world.boxes,     world.windows, world.database, world.profile,   files,
                            world.processes, world.clock,   world.locale,   world.automation};
    App app(platform);
    app.gcsAppPath = "C:\\SUITE";
    frmVer form(app);
    std::string csVersion;
    std::string csUpdate;
    CHECK(form.csGetVersionFile(csVersion, csUpdate) == "VERSION=a\r\n");
    CHECK(csVersion == "a");
    form.load();
    CHECK(form.lstVer.items().size() == 1);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("the button, return, escape and F12 each close the window")
{
    for (const std::int16_t key : {std::int16_t{0}, kReturnKey, kEscapeKey, kF12Key}) {
        CAPTURE(key);
        VersionFixture fixture;
        fixture.windows.acts.emplace_back([key](Form &form) {
            if (key == 0)
                dynamic_cast<frmVer &>(form).btnReturn.onClick();
            else
                form.key(nullptr, key);
            CHECK_FALSE(form.isLoaded());
        });
        fixture.windows.show(fixture.form, Modality::modal);
        CHECK(fixture.windows.acts.empty());
    }
}

TEST_CASE("another key leaves the window open")
{
    VersionFixture fixture;
    fixture.form.load();
    fixture.form.key(nullptr, 122);
    CHECK(fixture.form.isLoaded());
}

TEST_CASE("F12 also closes the window as a plain key, and its failure shows a box")
{
    VersionFixture fixture;
    fixture.form.load();
    fixture.form.mnF12.Enabled = false; // otherwise the menu's shortcut handles the key
    bool fails = true;
    fixture.form.watch([&fails] {
        if (fails) throw RuntimeError(error_number::objectNotSet);
    });
    fixture.form.key(nullptr, 123);
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0].text ==
          "フォームKeyDown()でエラー\r\n91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
    CHECK(fixture.boxes.shown[0].icon == Icon::critical);
    CHECK(fixture.boxes.shown[0].title.empty());
    fails = false;
    CHECK_FALSE(fixture.form.isLoaded());
}

namespace {
constexpr const char *kOldFile = "C:\\SUITE\\DATA\\Version.ini";
constexpr const char *kOldRecords = "0,名,委任状印刷\n55,x,  一行目 \n56,x,二行目\n";
} // namespace

TEST_CASE("the older file names the program in its first record and shows only the lines of the given program")
{
    VersionFixture fixture;
    fixture.files.putText(kOldFile, kOldRecords);
    fixture.form.readVersionIni(55);
    CHECK(fixture.form.laVer.Caption.get() == "委任状印刷");
    CHECK(fixture.lines() == std::vector<std::string>{"一行目"});
}

TEST_CASE("the older file gives all lines to program number 0")
{
    VersionFixture fixture;
    fixture.files.putText(kOldFile, kOldRecords);
    fixture.form.readVersionIni(0);
    CHECK(fixture.lines() == std::vector<std::string>{"一行目", "二行目"});
}

TEST_CASE("an older file that is truncated or missing raises its error")
{
    VersionFixture fixture;
    CHECK_THROWS_AS(fixture.form.readVersionIni(0), RuntimeError);
    fixture.files.putText(kOldFile, "0,名");
    CHECK_THROWS_AS(fixture.form.readVersionIni(0), RuntimeError);
}

#include "shell/online_help.h"

#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

constexpr const char *kVersionFile = "C:\\SUITE\\Sorvin.ver";
constexpr const char *kUserFile = "C:\\SUITE\\EmapUser.ini";
using Texts = std::vector<std::string>;

struct HelpFixture : FakeWorld {
    void putAddress(const std::string &line) { files.putText(kVersionFile, "[OnlineHelp]\n" + line + "\n"); }
    Texts openedAt(std::int16_t iPage)
    {
        processes.opened.clear();
        vDispHelp(app, iPage);
        return processes.opened;
    }
};

const ShownBox kNotAvailable{"オンラインヘルプは現在ご利用いただけません。", Icon::exclamation, "機能制限中"};

} // namespace

TEST_CASE("the help opens at the address with user and password reversed and the page")
{
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=http://help.example/top");
    fixture.files.putText(kUserFile, "ZENRIN_USER=abc\nZENRIN_PWD=xyz1\n");
    CHECK(fixture.openedAt(1) == Texts{"http://help.example/top?zi=cba&zp=1zyx&lk=1"});
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("a page below 1 is page 1")
{
    struct PageCase {
        std::int16_t iPage;
        const char *address;
    };
    constexpr PageCase kPages[] = {{1, "http://h/?zi=&zp=&lk=1"},  {0, "http://h/?zi=&zp=&lk=1"},
                                   {-1, "http://h/?zi=&zp=&lk=1"}, {-32768, "http://h/?zi=&zp=&lk=1"},
                                   {2, "http://h/?zi=&zp=&lk=2"},  {32767, "http://h/?zi=&zp=&lk=32767"}};
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=http://h/");
    fixture.files.putText(kUserFile, "");
    for (const PageCase &page : kPages) {
        CAPTURE(page.iPage);
        CHECK(fixture.openedAt(page.iPage) == Texts{page.address});
    }
}

TEST_CASE("a second call reads the address again, so that the query is never appended twice")
{
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=http://h/");
    fixture.files.putText(kUserFile, "ZENRIN_USER=ab\n");
    CHECK(fixture.openedAt(1) == Texts{"http://h/?zi=ba&zp=&lk=1"});
    CHECK(fixture.openedAt(2) == Texts{"http://h/?zi=ba&zp=&lk=2"});
    CHECK(fixture.app.csHelpUrl == "http://h/?zi=ba&zp=&lk=2");
}

TEST_CASE("the query is not escaped")
{
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=http://h/");
    fixture.files.putText(kUserFile, "ZENRIN_USER=a b&c\nZENRIN_PWD=語ﾊﾟ\n");
    CHECK(fixture.openedAt(1) == Texts{"http://h/?zi=c&b a&zp=ﾟﾊ語&lk=1"});
}

TEST_CASE("a missing user file opens the help without a query")
{
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=https://h/");
    CHECK(fixture.openedAt(1) == Texts{"https://h/"});
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("the user file is read from the folder found at the start, the version file from the runtime's")
{
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=http://h/");
    fixture.app.gcsAppPath = "D:\\FOUND";
    fixture.files.putText("D:\\FOUND\\EmapUser.ini", "ZENRIN_USER=ab\n");
    fixture.files.putText(kUserFile, "ZENRIN_USER=other\n");
    CHECK(fixture.openedAt(1) == Texts{"http://h/?zi=ba&zp=&lk=1"});
}

TEST_CASE("an unreadable user file opens the help without a query")
{
    HelpFixture fixture;
    fixture.putAddress("ADDRESS=http://h/");
    fixture.files.putText(kUserFile, "ZENRIN_USER=abc\n");
    fixture.files.openInputErrors["c:\\suite\\emapuser.ini"] = error_number::permissionDenied;
    CHECK(fixture.openedAt(1) == Texts{"http://h/"});
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("a missing version file is reported and opens nothing")
{
    HelpFixture fixture;
    fixture.app.csHelpUrl = "http://old/";
    CHECK(fixture.openedAt(1).empty());
    CHECK(fixture.boxes.shown ==
          std::vector<ShownBox>{{"環境ファイルの取得に失敗しました。", Icon::critical, "データ参照エラー"}});
}

TEST_CASE("an address that is not a web address is reported as not available and opens nothing")
{
    for (const char *line : {"", "ADDRESS=", "ADDRESS=   ", "ADDRESS=HTTP://h/", "ADDRESS=Http://h/",
                             "ADDRESS=ftp://h/", "ADDRESS=file:///etc/passwd", "ADDRESS=xhttp://h/", "ADDRESS=htt",
                             "ADDRESS=\" http://h/\"", "OTHER=http://h/"}) {
        CAPTURE(line);
        HelpFixture fixture;
        fixture.app.csHelpUrl = "http://old/";
        fixture.putAddress(line);
        fixture.files.putText(kUserFile, "ZENRIN_USER=abc\n");
        CHECK(fixture.openedAt(1).empty());
        CHECK(fixture.boxes.shown == std::vector<ShownBox>{kNotAvailable});
        CHECK(fixture.app.csHelpUrl.empty());
    }
}

TEST_CASE("an address in another section does not count")
{
    HelpFixture fixture;
    fixture.files.putText(kVersionFile, "[Other]\nADDRESS=http://h/\n");
    CHECK(fixture.openedAt(1).empty());
    CHECK(fixture.boxes.shown == std::vector<ShownBox>{kNotAvailable});
}

TEST_CASE("blanks around the address and quotes are removed")
{
    for (const char *line :
         {"ADDRESS=  http://h/", "ADDRESS=http://h/  ", "ADDRESS=\"http://h/ \"", "address=http://h/"}) {
        CAPTURE(line);
        HelpFixture fixture;
        fixture.putAddress(line);
        CHECK(fixture.openedAt(1) == Texts{"http://h/"});
    }
}

TEST_CASE("one file serves the version window and the help, with fields and with sections")
{
    HelpFixture fixture;
    fixture.files.putText("C:\\SUITE\\SORVIN.VER", "VERSION=1\n[OnlineHelp]\nADDRESS=http://h/?a,b\n");
    CHECK(fixture.openedAt(1) == Texts{"http://h/?a,b"});
}

TEST_CASE("a run-time error with the version file is reported, and the help opens with the previous address")
{
    class NoFolder : public FakeFiles {
    public:
        std::string applicationFolder() override { throw RuntimeError(error_number::diskNotReady); }
    };
    FakeWorld world;
    NoFolder files;
    const Platform platform{world.boxes,     world.windows, world.database, world.profile,   files,
                            world.processes, world.clock,   world.locale,   world.automation};
    App app(platform);
    app.csHelpUrl = "http://old/";
    vDispHelp(app, 1);
    CHECK(world.boxes.shown == std::vector<ShownBox>{{"Error:ディスクが準備されていません。", Icon::none, ""}});
    CHECK(world.processes.opened == Texts{"http://old/"});

    app.csHelpUrl.clear();
    world.boxes.shown.clear();
    vDispHelp(app, 1);
    REQUIRE(world.boxes.shown.size() == 2);
    CHECK(world.boxes.shown[1] == kNotAvailable);
}

namespace {

struct UserCase {
    const char *claim;
    const char *file;
    const char *csUser;
    const char *csPwd;
};
constexpr UserCase kUsers[] = {
    {"both keys", "ZENRIN_USER=u\nZENRIN_PWD=p\n", "u", "p"},
    {"the other order", "ZENRIN_PWD=p\nZENRIN_USER=u", "u", "p"},
    {"the last of two counts", "ZENRIN_USER=a\nZENRIN_USER=b\n", "b", "old"},
    {"other lines are skipped", "[ZENRIN]\n\nUSER=x\nZENRIN_USER=u\n", "u", "old"},
    {"a key behind other characters is none", "xZENRIN_USER=u\n", "old", "old"},
    {"a key in lower case is none", "zenrin_user=u\n", "old", "old"},
    {"a comma ends the value", "ZENRIN_USER=a,b\n", "a", "old"},
    {"enclosing quotes go", "\"ZENRIN_USER=u\"\n", "u", "old"},
    {"an empty value counts", "ZENRIN_USER=\n", "", "old"},
    {"a value keeps its \"=\"", "ZENRIN_PWD==p=\n", "old", "=p="},
};

} // namespace

TEST_CASE("user and password are read from the lines that begin with their keys")
{
    for (const UserCase &each : kUsers) {
        CAPTURE(each.claim);
        HelpFixture fixture;
        fixture.files.putText(kUserFile, each.file);
        std::string csUser = "old";
        std::string csPwd = "old";
        CHECK(iGetEmapUser(fixture.app, csUser, csPwd) == 1);
        CHECK(csUser == each.csUser);
        CHECK(csPwd == each.csPwd);
    }
}

TEST_CASE("a missing user file is -1")
{
    HelpFixture fixture;
    std::string csUser;
    std::string csPwd;
    CHECK(iGetEmapUser(fixture.app, csUser, csPwd) == -1);
}

TEST_CASE("reading the address gives 0 even if it is empty, and -1 without the file")
{
    HelpFixture fixture;
    CHECK(iGetHelpAddress(fixture.app) == -1);
    fixture.putAddress("");
    CHECK(iGetHelpAddress(fixture.app) == 0);
    CHECK(fixture.app.csHelpUrl.empty());
    fixture.putAddress("ADDRESS=http://h/");
    CHECK(iGetHelpAddress(fixture.app) == 0);
    CHECK(fixture.app.csHelpUrl == "http://h/");
}

TEST_CASE("characters are reversed as a whole, including those beyond 16 bits")
{
    CHECK(reversedCharacters("") == "");
    CHECK(reversedCharacters("a") == "a");
    CHECK(reversedCharacters("abc") == "cba");
    CHECK(reversedCharacters("あbい") == "いbあ");
    CHECK(reversedCharacters("a𠮷b") == "b𠮷a");
    CHECK(reversedCharacters("𠮷😀") == "😀𠮷");
}

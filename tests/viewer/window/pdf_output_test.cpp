#include "viewer/window/window_world.h"

#include <QCoreApplication>
#include <QTimer>
#include <doctest/doctest.h>

#include <csignal>
#include <filesystem>
#include <sys/resource.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Writing : WindowWorld {
    explicit Writing(int count) : WindowWorld(differentRows(count))
    {
        openWindow();
        pdfFile = QString::fromStdString(out / "out.pdf");
        pdfFolder = QString::fromStdString(out.path());
    }
    TempFolder out;
};

/// Limits the size of this process's files to some bytes, like a full disk.
struct FullDisk {
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    rlimit before{};
};

using Names = std::vector<std::string>;

} // namespace

TEST_CASE("a PDF of the ticked letters has one page for each, with its own texts")
{
    Writing world(5);
    world.window->letters().ticks.setText("2,5");
    world.window->savePdf({true, false, {}});
    const auto pages = pagesOf(world.out / "out.pdf");
    REQUIRE(pages.size() == 2);
    CHECK(contains(pages[0], "甲2"));
    CHECK(contains(pages[1], "甲5"));
    CHECK_FALSE(contains(pages[1], "甲2"));
}

TEST_CASE("a PDF of all letters ignores the ticks")
{
    Writing world(5);
    world.window->letters().ticks.setText("2");
    world.window->savePdf({false, false, {}});
    CHECK(pagesOf(world.out / "out.pdf").size() == 5);
}

TEST_CASE("each file of one letter is named by its columns and contains only that letter")
{
    Writing world(3);
    world.window->letters().ticks.setText("1,3");
    world.window->savePdf({true, true, QStringLiteral("{{番号}}-{{利用者氏名}}")});
    CHECK(world.out.names() == Names{"1-甲1.pdf", "3-甲3.pdf"});
    const auto pages = pagesOf(world.out / "3-甲3.pdf");
    REQUIRE(pages.size() == 1);
    CHECK(contains(pages[0], "甲3"));
}

TEST_CASE("one file and a file for each letter are saved as PDF/A on request")
{
    Writing world(2);
    world.window->savePdf({false, false, {}, PdfPurpose::archive});
    world.window->savePdf({false, true, QStringLiteral("{{番号}}"), PdfPurpose::archive});
    for (const char *name : {"out.pdf", "1.pdf", "2.pdf"})
        CHECK(contains(world.out.bytes(name), "<pdfaid:part>2</pdfaid:part>"));
}

TEST_CASE("existing files are overwritten only when the user agrees")
{
    Writing world(2);
    world.out.put("甲1.pdf", "old");
    world.mayReplace = false;
    world.window->savePdf({false, true, QStringLiteral("{{利用者氏名}}")});
    CHECK(world.messages.front() == QStringLiteral("同じ名前のファイルが1個あります。上書きしますか。"));
    CHECK(world.out.bytes("甲1.pdf") == "old");
    CHECK(world.out.names() == Names{"甲1.pdf"});
    world.mayReplace = true;
    world.window->savePdf({false, true, QStringLiteral("{{利用者氏名}}")});
    CHECK(world.out.bytes("甲1.pdf").starts_with("%PDF"));
    CHECK(world.out.names() == Names{"甲1.pdf", "甲2.pdf"});
}

TEST_CASE("a path that cannot be written is reported, and no file is created")
{
    Writing world(2);
    world.pdfFile = QString::fromStdString(world.out / "gone/out.pdf");
    world.window->savePdf({false, false, {}});
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages[0].contains(QStringLiteral("に書き込めません。")));
    CHECK(world.out.names().empty());
}

TEST_CASE("a full disk is reported, leaves no partial file and keeps the old file")
{
    Writing world(50);
    world.out.put("out.pdf", "old");
    {
        const FullDisk disk(4096);
        world.window->savePdf({false, false, {}});
    }
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages[0].contains(QStringLiteral("に書き込めません。")));
    CHECK(world.out.names() == Names{"out.pdf"});
    CHECK(world.out.bytes("out.pdf") == "old");
}

TEST_CASE("a full disk in the middle of many files leaves only complete files")
{
    Writing world(3);
    {
        const FullDisk disk(4096);
        world.window->savePdf({false, true, QStringLiteral("{{番号}}")});
    }
    CHECK(world.messages.size() == 1);
    CHECK(world.out.names().empty());
}

TEST_CASE("saving without ticked letters asks for nothing and writes nothing")
{
    Writing world(2);
    world.window->letters().ticks.setAll(false);
    world.window->savePdf({true, false, {}});
    CHECK(world.messages == std::vector<QString>{QStringLiteral("保存する委任状が選ばれていません。")});
    CHECK(world.out.names().empty());
}

TEST_CASE("closing and cancelling while files are written leaves only complete files")
{
    Writing world(300);
    world.closeAnswers = {CloseAnswer::cancelAndClose};
    QTimer::singleShot(0, world.window.get(), [&] { world.window->close(); });
    world.window->savePdf({false, true, QStringLiteral("{{番号}}")});
    QCoreApplication::processEvents();
    CHECK(!world.window->isVisible());
    const Names names = world.out.names();
    CHECK(names.size() < 300);
    for (const std::string &name : names) CHECK(world.out.bytes(name).ends_with("%%EOF\n"));
}

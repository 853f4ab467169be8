#include "viewer/document/letter_numbers.h"
#include "viewer/window/window_world.h"

#include <QApplication>
#include <QTimer>
#include <doctest/doctest.h>

#include <csignal>
#include <filesystem>

#include <sys/resource.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Sets an environment variable during its lifetime.
class Setting {
public:
    Setting(const char *name, const QByteArray &value) : m_name(name), m_before(qgetenv(name)) { qputenv(name, value); }
    Setting(const Setting &) = delete;
    Setting &operator=(const Setting &) = delete;
    ~Setting()
    {
        if (m_before.isNull())
            qunsetenv(m_name);
        else
            qputenv(m_name, m_before);
    }

private:
    const char *m_name;
    QByteArray m_before;
};

/// Prevents every file from growing during its lifetime.
class FullSpoolDisk {
public:
    FullSpoolDisk() : m_onSignal(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{1000, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    FullSpoolDisk(const FullSpoolDisk &) = delete;
    FullSpoolDisk &operator=(const FullSpoolDisk &) = delete;
    ~FullSpoolDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_onSignal);
    }

private:
    rlimit m_before{};
    void (*m_onSignal)(int);
};

/// A window world with an `lp` that saves its arguments and its file and then runs the shell command `behind`.
struct Spooling : WindowWorld {
    explicit Spooling(int count, const std::string &behind = "") : WindowWorld(differentRows(count))
    {
        std::filesystem::create_directory(folder / "bin");
        const std::string lp = folder / "bin/lp";
        writeBytes(lp, "#!/bin/sh\n"
                       "cd \"$(dirname \"$0\")\"\n"
                       "n=$(ls call* 2>/dev/null | wc -l)\n"
                       "printf '%s\\n' \"$@\" > call$n\n"
                       "for last; do :; done\n"
                       "cp \"$last\" job$n.pdf\n" +
                           behind + "\n");
        std::filesystem::permissions(lp, std::filesystem::perms::owner_all);
        path.emplace("PATH", QByteArray::fromStdString(folder / "bin") + ":" + qgetenv("PATH"));
        spool = systemSpool();
        REQUIRE(spool);
    }

    PrintResult print(const std::string &range, const PrintOrder &order, const PrintProgress &progress = {})
    {
        letters.ticks.setText(range);
        return printLetters(letters, letters.ticks.letters(), order, services().paths, progress);
    }
    [[nodiscard]] std::string job(int n) const { return folder / ("bin/job" + std::to_string(n) + ".pdf"); }
    [[nodiscard]] std::vector<std::string> call(int n) const
    {
        std::vector<std::string> lines;
        const std::string all = folder.bytes("bin/call" + std::to_string(n));
        for (std::size_t begin = 0; begin < all.size(); begin = all.find('\n', begin) + 1)
            lines.push_back(all.substr(begin, all.find('\n', begin) - begin));
        return lines;
    }
    [[nodiscard]] bool wasCalled(int n) const { return folder.has("bin/call" + std::to_string(n)); }

    OpenLetters letters{script};
    std::optional<Setting> path;
};

int firstDarkColumn(const QImage &image)
{
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) < 128) return x;
    return image.width();
}

} // namespace

TEST_CASE("lp gets printer, copies, title, paper and sides, and a file that is deleted afterwards")
{
    Spooling world(3);
    PrintOrder order = world.order();
    order.copies = 2;
    order.duplex = QPrinter::DuplexShortSide;
    REQUIRE(world.print("1-3", order).isDone());
    std::vector<std::string> call = world.call(0);
    REQUIRE(!call.empty());
    CHECK(!std::filesystem::exists(call.back()));
    CHECK(!std::filesystem::exists(std::filesystem::path(call.back()).parent_path()));
    call.pop_back();
    CHECK(call == std::vector<std::string>{"-d", "紙", "-n", "2", "-t", "委任状", "-o", "collate=true", "-o",
                                           "print-scaling=none", "-o", "media=iso_a4_210x297mm", "-o",
                                           "sides=two-sided-short-edge"});
    CHECK(!world.wasCalled(1));
}

TEST_CASE("sides that follow the queue are not passed to lp, others are")
{
    struct Case {
        QPrinter::DuplexMode duplex;
        const char *option;
    };
    for (const Case &each :
         {Case{QPrinter::DuplexNone, "sides=one-sided"}, Case{QPrinter::DuplexLongSide, "sides=two-sided-long-edge"},
          Case{QPrinter::DuplexShortSide, "sides=two-sided-short-edge"}}) {
        SpoolJob job;
        job.order.duplex = each.duplex;
        CHECK(lpArguments(job).contains(QLatin1String(each.option)));
    }
    CHECK(lpArguments({}).filter(QStringLiteral("sides=")).isEmpty());
}

TEST_CASE("the paper of a job is passed by its standard name")
{
    SpoolJob job;
    job.paper = sizeOf(Paper::B5);
    CHECK(lpArguments(job).contains(QStringLiteral("media=jis_b5_182x257mm")));
    job.paper = sizeOf(Paper::A5);
    CHECK(lpArguments(job).contains(QStringLiteral("media=iso_a5_148x210mm")));
}

TEST_CASE("page k of the submitted PDF contains the texts of the k-th ticked letter and of no other")
{
    Spooling world(9);
    REQUIRE(world.print("2,7-9", world.order()).isDone());
    const std::vector<std::string> pages = pagesOf(world.job(0));
    REQUIRE(pages.size() == 4);
    const char *const names[] = {"甲2", "甲7", "甲8", "甲9"};
    for (std::size_t page = 0; page < 4; ++page)
        for (std::size_t name = 0; name < 4; ++name)
            CHECK(contains(packed(pages[page]), names[name]) == (page == name));
}

TEST_CASE("the submitted PDF is one for printing, without what only readers of a file need")
{
    Spooling world(4);
    REQUIRE(world.print("1,3", world.order()).isDone());
    const std::vector<std::size_t> which{0, 2};
    REQUIRE(writeLettersPdf(world.folder / "saved.pdf", world.letters.renderer, which, {}, {PdfPurpose::printing}));
    CHECK(bytesOf(world.job(0)) == world.folder.bytes("saved.pdf"));
}

TEST_CASE("jobs of n letters are submitted one by one and are titled by their numbers")
{
    Spooling world(9);
    PrintOrder order = world.order();
    order.lettersPerJob = 4;
    CHECK(world.print("1-9", order).sent == 9);
    CHECK(pageCount(world.job(0)) == 4);
    CHECK(pageCount(world.job(1)) == 4);
    CHECK(pageCount(world.job(2)) == 1);
    CHECK(!world.wasCalled(3));
    CHECK(world.call(1)[5] == "委任状（5-8番）");
}

TEST_CASE("each accepted job is reported at once with its letters and the queue's number")
{
    Spooling world(5, "echo \"request id is 紙-$((70 + n)) (1 file(s))\"; [ $n -lt 2 ]");
    PrintOrder order = world.order();
    order.lettersPerJob = 2;
    std::vector<std::string> sent;
    world.letters.ticks.setText("1-5");
    const auto onSent = [&](std::span<const std::size_t> letters, const std::string &number) {
        CHECK(!world.wasCalled(static_cast<int>(sent.size()) + 1));
        sent.push_back(number + ":" + letterListText({letters.begin(), letters.end()}));
    };
    const PrintResult result =
        printLetters(world.letters, world.letters.ticks.letters(), order, world.services().paths, {}, onSent);
    CHECK(!result.isDone());
    CHECK(sent == std::vector<std::string>{"70:1-2", "71:3-4"});
}

TEST_CASE("the number of a job is found in every language of lp")
{
    const auto number = [](const char *answer, const char *printer) {
        return jobNumberIn(QString::fromUtf8(answer), QString::fromUtf8(printer));
    };
    CHECK(number("request id is Office-2-123 (1 file(s))\n", "Office-2") == "123");
    CHECK(number("要求された ID は 紙-7（1 個のファイル）です\n", "紙") == "7");
    CHECK(number("", "紙").empty());
    CHECK(number("request id is unknown\n", "紙").empty());
    CHECK(number("紙-", "紙").empty());
}

TEST_CASE("the pages of the submitted PDF are moved by the offset in tenths of a millimetre")
{
    Spooling world(1);
    PrintOrder order = world.order();
    REQUIRE(world.print("1", order).isDone());
    order.offset = {100, -50};
    REQUIRE(world.print("1", order).isDone());
    const QImage before = pageImage(world.job(0), 1), after = pageImage(world.job(1), 1);
    const int right = firstDarkColumn(after) - firstDarkColumn(before);
    const auto turned = [](const QImage &page) { return page.transformed(QTransform(0, 1, 1, 0, 0, 0)); };
    const int down = firstDarkColumn(turned(after)) - firstDarkColumn(turned(before));
    // 10 mm are 28.3 dots, 5 mm 14.2.
    CHECK(std::abs(right - 28) <= 1);
    CHECK(std::abs(down + 14) <= 1);
}

TEST_CASE("a refusal is reported with the queue's own message, and the letters count as not sent")
{
    Spooling world(3, "echo 'lp: Error - The printer or class does not exist.' >&2; exit 1");
    const PrintResult result = world.print("1-3", world.order());
    CHECK(result.sent == 0);
    CHECK(!result.isCancelled);
    CHECK(result.fault == "プリンター「紙」が印刷を受け付けませんでした。電源、用紙、接続を確認してください。\n"
                          "（lp: Error - The printer or class does not exist.）");
}

TEST_CASE("a queue that refuses a later job leaves the letters of the earlier jobs as sent")
{
    Spooling world(9, "[ $n = 0 ]");
    PrintOrder order = world.order();
    order.lettersPerJob = 3;
    const PrintResult result = world.print("1-9", order);
    CHECK(result.sent == 3);
    CHECK(!result.fault.empty());
    CHECK(!world.wasCalled(2));
}

TEST_CASE("a print that is cancelled before its file is complete submits nothing")
{
    Spooling world(250);
    const PrintResult result = world.print("1-250", world.order(), [](std::size_t done) { return done < 200; });
    CHECK(result.isCancelled);
    CHECK(result.sent == 0);
    CHECK(!world.wasCalled(0));
}

TEST_CASE("a print that is cancelled while the system accepts it is withdrawn")
{
    Spooling world(3, "exec sleep 60");
    int asked = 0;
    const PrintResult result = world.print("1-3", world.order(), [&](std::size_t done) {
        CHECK(done == 3);
        return !world.wasCalled(0) || ++asked < 3;
    });
    CHECK(result.isCancelled);
    CHECK(result.sent == 0);
}

TEST_CASE("a disk that is full during a print is reported with the file's name, and nothing is submitted")
{
    Spooling world(1);
    const FullSpoolDisk disk;
    const PrintResult result = world.print("1", world.order());
    CHECK(result.sent == 0);
    CHECK(contains(result.fault, "に書き込めません。"));
    CHECK(!world.wasCalled(0));
}

TEST_CASE("a system without lp has no spooler")
{
    TempFolder folder;
    const Setting none("PATH", QByteArray::fromStdString(folder.path()));
    CHECK(!systemSpool());
}

TEST_CASE("the ruler page is submitted in the same manner, as one copy moved by the offset")
{
    Spooling world(1);
    PrintOrder order = world.order();
    order.copies = 5;
    order.offset = {15, -3};
    REQUIRE(printRulerPage(world.letters, order, world.services().paths).empty());
    CHECK(world.call(0)[3] == "1");
    const std::string text = packed(pagesOf(world.job(0)).at(0));
    CHECK(contains(text, "位置調整のテスト"));
    CHECK(contains(text, "プリンター：紙今の調整：右へ1.5mm、下へ-0.3mm"));
    CHECK(pageCount(world.job(0)) == 1);
}

TEST_CASE("closing while the system accepts the letters asks, and waiting loses no letter")
{
    Spooling world(120, "sleep 0.5");
    world.openWindow();
    world.closeAnswers = {CloseAnswer::closeWhenDone};
    QTimer::singleShot(100, world.window.get(), [&] { world.window->close(); });
    world.window->print(world.order());
    QApplication::processEvents();
    REQUIRE(world.closeStates.size() == 1);
    CHECK(!world.window->isVisible());
    CHECK(pageCount(world.job(0)) == 120);
    CHECK(world.WindowWorld::messages.empty());
}

TEST_CASE("closing at once while the system accepts the letters withdraws them and reports which")
{
    Spooling world(120, "exec sleep 60");
    world.openWindow();
    world.closeAnswers = {CloseAnswer::cancelAndClose};
    QTimer::singleShot(100, world.window.get(), [&] { world.window->close(); });
    world.window->print(world.order());
    QApplication::processEvents();
    CHECK(!world.window->isVisible());
    CHECK(world.WindowWorld::messages ==
          std::vector<QString>{
              QStringLiteral("印刷を中止しました。\n\nプリンターに送った番号：なし\n送っていない番号：1-120")});
}

TEST_CASE(
    "a refusal of the system's queue reports the numbers that were not sent, without the warning about a partial print")
{
    Spooling world(9, "echo 'lp: no' >&2; [ $n = 0 ]");
    world.openWindow();
    PrintOrder order = world.order();
    order.lettersPerJob = 4;
    world.window->print(order);
    CHECK(world.window->isVisible());
    CHECK(world.WindowWorld::messages ==
          std::vector<QString>{QStringLiteral(
              "プリンター「紙」が印刷を受け付けませんでした。電源、用紙、接続を確認してください。\n（lp: no）"
              "\n\nプリンターに送った番号：1-4\n送っていない番号：5-9")});
}

TEST_CASE("the trays of a queue are those in its options, and a system without a list has none")
{
    const Spooling world(1);
    const std::string options = world.folder / "bin/lpoptions";
    writeBytes(options, "#!/bin/sh\n[ \"$*\" = '-p 紙 -l' ] && echo 'InputSlot/Media Source: *Auto Tray2'\n");
    std::filesystem::permissions(options, std::filesystem::perms::owner_all);
    const std::vector<TrayChoice> trays = systemTrays(QStringLiteral("紙"));
    REQUIRE(trays.size() == 2);
    CHECK(trays[1].key == QStringLiteral("InputSlot=Tray2"));
    CHECK(systemTrays(QStringLiteral("別")).empty());
    const Setting none("PATH", QByteArray::fromStdString(world.folder.path()));
    CHECK(systemTrays(QStringLiteral("紙")).empty());
}

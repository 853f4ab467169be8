// The window follows its form while the form is edited.
#include "viewer/support/test_pictures.h"
#include "viewer/window/ledger_world.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::string formCalled(const std::string &title, const std::string &elements = {})
{
    return svgPage("<title>" + title + "</title><text x='20' y='30' style='font-size:6px'>{{利用者氏名}}</text>" +
                   elements);
}

struct Preview : LedgerWorld {
    Preview() : LedgerWorld(differentRows(5)) { ledgerFile.clear(); }

    /// Lets the window notice what is on the disk: a state counts once two checks have seen it.
    void notice() const
    {
        window->checkForms();
        window->checkForms();
    }
    void save(const std::string &form)
    {
        write(kForm, form);
        notice();
    }
    /// Saves as editors do that write a new file and put it in the place of the old one.
    void saveByRename(const std::string &form)
    {
        write("新しい帳票", form);
        std::filesystem::rename(pathOf(folder / "新しい帳票"), pathOf(folder / kForm));
    }
    /// Writes a file with a time of its own. Tests write faster than the clock of a file system ticks.
    void write(const char *name, const std::string &bytes)
    {
        const std::filesystem::path path = pathOf(folder.put(name, bytes));
        time += std::chrono::seconds(1);
        std::filesystem::last_write_time(path, time);
    }
    [[nodiscard]] const FormDocument &form() const { return window->letters().set.reports[0].form; }
    std::filesystem::file_time_type time = std::filesystem::file_time_type::clock::now();
    [[nodiscard]] std::string noticeText() const { return isShown("noticeBar") ? textOf("noticeText") : ""; }
    [[nodiscard]] std::string status() const { return window->statusBar()->currentMessage().toStdString(); }
};

} // namespace

TEST_CASE("a saved form is shown with the letter, ticks, zoom, scroll position, search and filter as they were")
{
    Preview world;
    world.openWindow();
    auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    REQUIRE(page != nullptr);
    page->setZoom(2);
    world.window->letters().ticks.setText("1,4");
    world.find<QLineEdit>("find")->setText(QStringLiteral("甲3"));
    world.window->setFilter(ListFilter::ticked);
    world.window->showLetter(3);
    page->verticalScrollBar()->setValue(77);
    page->horizontalScrollBar()->setValue(33);

    for (const char *title : {"改訂一", "改訂二", "改訂三"}) world.save(formCalled(title));

    CHECK(world.form().title == "改訂三");
    CHECK(world.window->windowTitle().contains(QStringLiteral("改訂三")));
    CHECK(world.ticks() == "1,4");
    CHECK(world.shownNumber() == "4");
    CHECK(page->zoom() == doctest::Approx(2));
    CHECK(page->verticalScrollBar()->value() == 77);
    CHECK(page->horizontalScrollBar()->value() == 33);
    CHECK(world.find<QLineEdit>("find")->text() == QStringLiteral("甲3"));
    CHECK(world.listed() == "1 4");
    CHECK(world.status() == "保存された帳票を読み込みました。");
}

TEST_CASE("the page shows what the saved form draws, on the form's present paper")
{
    Preview world;
    world.openWindow();
    auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    world.save(formCalled("空"));
    const QImage before = page->grab().toImage();
    world.save(formCalled("黒", "<rect x='5' y='5' width='200' height='280'/>"));
    const QImage after = page->grab().toImage();
    CHECK(qGray(before.pixel(before.rect().center())) > 200);
    CHECK(qGray(after.pixel(after.rect().center())) < 50);
    world.save("<svg xmlns='http://www.w3.org/2000/svg' width='120mm' height='235mm'/>");
    CHECK(page->paperPlace().width() * 235 == doctest::Approx(page->paperPlace().height() * 120).epsilon(0.01));
}

TEST_CASE("the letters stay those that were opened when the form is saved")
{
    Preview world;
    world.openWindow();
    world.folder.put("委任状.csv", csvOf(differentRows(2)));
    world.save(formCalled("改訂"));
    CHECK(world.form().title == "改訂");
    CHECK(world.window->letters().set.size() == 5);
}

TEST_CASE("a broken save keeps the last good form and shows the reason, and the next good save is shown")
{
    struct Case {
        const char *saved, *reason;
    };
    const std::string unknown = formCalled("悪い版", "<text>{{知らない列}}</text>");
    const std::string open = formCalled("悪い版", "<text>{{閉じない</text>");
    const std::string cut = formCalled("悪い版").substr(0, 120);
    const Case cases[] = {{cut.c_str(), "XML"},
                          {"", "帳票（SVG）ではありません。"},
                          {unknown.c_str(), "列「知らない列」が CSV にありません。"},
                          {open.c_str(), "閉じられていません。"}};
    for (const Case &each : cases) {
        CAPTURE(std::string(each.saved));
        Preview world;
        world.openWindow();
        world.save(formCalled("良い版"));
        world.save(each.saved);
        CHECK(world.form().title == "良い版");
        CHECK(contains(world.noticeText(), each.reason));
        CHECK(contains(world.noticeText(), "前の帳票をそのまま表示しています。"));
        CHECK(contains(world.status(), "保存された帳票を読み込めません。"));
        world.save(formCalled("直した版"));
        CHECK(world.form().title == "直した版");
        CHECK(world.noticeText().empty());
    }
}

TEST_CASE("a form that could not be read when it was saved is read later without another save")
{
    Preview world;
    world.openWindow();
    const std::string form = formCalled("あとで読める版");
    world.save("<" + form.substr(1).replace(0, 3, "svh"));
    CHECK(!world.noticeText().empty());
    // For the watch this is the state that it has reported already: only another attempt can find the form.
    world.folder.put(kForm, form);
    std::filesystem::last_write_time(pathOf(world.folder / kForm), world.time);
    CHECK(QTest::qWaitFor([&] { return world.form().title == "あとで読める版"; }));
    CHECK(world.noticeText().empty());
}

TEST_CASE("an offer to load changed letters stays when a form is saved")
{
    Preview world;
    world.openWindow();
    world.folder.put("委任状.csv", csvOf(differentRows(2)));
    world.window->checkFiles();
    world.window->checkFiles();
    const std::string offer = world.noticeText();
    CHECK(contains(offer, "書き換えられました"));
    world.save("");
    CHECK(world.noticeText() == offer);
    world.save(formCalled("改訂"));
    CHECK(world.noticeText() == offer);
}

TEST_CASE("a thousand saves by rename and by writing in parts show whole forms only, and nothing accumulates")
{
    Preview world;
    world.openWindow();
    std::string many;
    for (int i = 0; i < 40; ++i) many += "<rect x='9' y='9' width='9' height='9'/>";
    world.save(formCalled("版", many));
    const std::size_t commands = world.form().commands.size();
    const auto objects = world.window->findChildren<QObject *>().size();
    std::size_t shown = 0;
    std::string title = "版";
    for (int i = 1; i <= 1000; ++i) {
        const std::string form = formCalled("版" + std::to_string(i), many);
        if (i % 2 == 0) {
            world.saveByRename(form);
        } else {
            for (const std::size_t size : {std::size_t{0}, form.size() / 2, form.size()}) {
                world.write(kForm, form.substr(0, size));
                world.window->checkForms();
            }
        }
        world.window->checkForms();
        if (i % 10 == 0) world.notice();
        if (i % 50 == 0) QCoreApplication::processEvents();
        CHECK(world.form().commands.size() == commands);
        if (title != world.form().title) ++shown;
        title = world.form().title;
    }
    world.notice();
    CHECK(shown >= 100);
    CHECK(world.form().title == "版1000");
    world.settle();
    CHECK(world.window->findChildren<QObject *>().size() == objects);
    CHECK(world.window->letters().notices.empty());
    CHECK(world.noticeText().empty());
}

TEST_CASE("a changed picture beside the form is shown, also one that was missing before")
{
    Preview world;
    world.openWindow();
    const auto notices = [&] { return world.window->letters().notices; };
    world.save(formCalled("印影", "<image href='印影.png' width='20' height='20'/>"));
    REQUIRE(notices().size() == 1);
    CHECK(contains(notices()[0], "ファイルがありません。"));
    world.write("印影.png", pictureBytes("cut.png"));
    world.notice();
    REQUIRE(notices().size() == 1);
    CHECK(contains(notices()[0], "途中で切れているか、壊れています。"));
    world.write("印影.png", pictureBytes("seal.png"));
    world.notice();
    CHECK(notices().empty());
}

TEST_CASE("the findings, notices and fonts are those of the saved form")
{
    Preview world;
    world.openWindow();
    const std::string long1 = "<text x='20' y='50' style='font-family:Nowhere'>{{利用者住所}}</text>";
    world.save(formCalled("別のフォント", long1 + "<text x='9' y='90'>｛｛氏名｝｝</text>"));
    world.settle();
    const std::vector<std::string> notices = world.window->letters().notices;
    REQUIRE(notices.size() == 2);
    CHECK(contains(notices[0], "全角の波かっこ"));
    CHECK(contains(notices[1], "フォント「Nowhere」がないので"));
    CHECK(world.window->findings().size() == 5); // the braces, for each letter
    world.save(formCalled("直した版"));
    world.settle();
    CHECK(world.window->letters().notices.empty());
    CHECK(world.window->findings().empty());
}

TEST_CASE("a form that is saved during a print is shown after it, and all sheets have the form with which it began")
{
    Preview world;
    world.spool = [&](const SpoolJob &, const std::function<bool()> &) {
        world.save(formCalled("次の版"));
        CHECK(world.form().title == "前の版");
        return SpoolResult{};
    };
    world.openWindow();
    world.save(formCalled("前の版"));
    world.window->print(world.order());
    CHECK(world.form().title == "前の版");
    CHECK(QTest::qWaitFor([&] { return world.form().title == "次の版"; }));
}

TEST_CASE("letters that are printed right after a save are recorded with the saved form")
{
    Preview world;
    world.ledgerFile = world.folder / "台帳.db";
    world.openWindow();
    world.save(formCalled("改訂"));
    world.print("1-2");
    CHECK(world.ledger().findRun(markOf(world.window->letters().set)).has_value());
    CHECK(world.states() == std::vector<std::string>{"送信済み", "送信済み", "未印刷", "未印刷", "未印刷"});
    // Another form makes another run, whose letters are not printed yet.
    world.save(formCalled("再改訂"));
    CHECK(QTest::qWaitFor([&] { return world.states()[0] == "未印刷"; }));
}

TEST_CASE("a cover form that is edited keeps its number of covers, and each has as many names as the form lists")
{
    Preview world;
    const auto cover = [](const std::string &names) {
        return svgPage("<text x='20' y='30'>{{通数}}</text><text x='20' y='50'>" + names + "</text>");
    };
    const std::string path = world.folder.put("表紙.svg", cover("{{氏名1}}"));
    world.window =
        std::make_unique<ViewerWindow>(path, std::make_unique<OpenLetters>(openForm(path)), world.services());
    world.window->show();
    world.settle();
    const auto first = [&](const char *column) {
        const LetterTable &covers = world.window->letters().set.reports[0].letters;
        return std::string(covers.value(0, covers.columnOf(column).value()));
    };
    CHECK(world.window->letters().set.size() == 9);
    CHECK(world.window->findings().empty());
    CHECK(first("保険者名") == "さぬき市国民健康保険");
    CHECK(first("ページ数") == "2");
    world.write("表紙.svg", cover("{{氏名1}}{{氏名2}}"));
    world.notice();
    CHECK(world.window->letters().set.size() == 9);
    CHECK(first("ページ数") == "1");
    CHECK(first("氏名2") == "加藤　昭");
    // Without a column of its own, the form is what it was when it was opened.
    world.write("表紙.svg", svgPage("<text x='20' y='30'>{{保険者名}}</text>"));
    world.notice();
    CHECK(world.window->letters().set.size() == 9);
    CHECK(world.noticeText().empty());
}

TEST_CASE("sample letters on a form are shown with their name and are not recorded")
{
    Preview world;
    world.ledgerFile = world.folder / "台帳.db";
    const std::string path = world.folder.put("封筒.svg", formCalled("封筒"));
    world.window =
        std::make_unique<ViewerWindow>(path, std::make_unique<OpenLetters>(openForm(path)), world.services());
    world.window->show();
    world.settle();
    CHECK(world.window->letters().set.size() == 60);
    CHECK(world.window->windowTitle() == QStringLiteral("委任状 封筒　60通　見本のデータ － 印刷プレビュー"));
    world.print("1-3");
    CHECK(pageCount(world.jobPath(0)) == 3);
    CHECK(!world.folder.has("台帳.db"));
    world.write("封筒.svg", formCalled("直した封筒"));
    world.window->reload();
    CHECK(world.form().title == "直した封筒");
    world.write("封筒.svg", formCalled("もう一度"));
    world.notice();
    CHECK(world.form().title == "もう一度");
}

#include "viewer/window/painted_job.h"
#include "viewer/window/print_letters.h"
#include "viewer/window/tray_text.h"
#include "viewer/window/window_world.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

QString words(const char *text)
{
    return QString::fromUtf8(text);
}

/// Notes the tray that it was set to when it is released.
class TrayPrinter : public PaperPrinter {
public:
    TrayPrinter(const QString &path, QPrinter::PaperSource &source) : PaperPrinter(path, 100), m_source(source) {}
    ~TrayPrinter() override { m_source = paperSource(); }

private:
    QPrinter::PaperSource &m_source;
};

struct TrayDialog {
    TempFolder folder;
    ViewerSettings settings{QString::fromStdString(folder / "settings.ini")};
    LetterTicks ticks{3};
    std::vector<PrinterChoice> printers{{words("一階"),
                                         {},
                                         true,
                                         QPrinter::DuplexNone,
                                         [] {
                                             return std::vector<TrayChoice>{
                                                 {words("InputSlot=Tray1"), words("トレイ 1")},
                                                 {words("InputSlot=Tray2"), words("トレイ 2")}};
                                         }},
                                        {words("二階"), {}, false, QPrinter::DuplexLongSide}};
    PrintDialog dialog{ticks, settings, printers};

    template <class Widget> static Widget *find(PrintDialog &dialog, const char *name)
    {
        return dialog.findChild<Widget *>(QLatin1String(name));
    }
};

} // namespace

TEST_CASE("the dialog offers the printer's trays and keeps duplex, tray and order for the next print")
{
    TrayDialog world;
    auto *const tray = TrayDialog::find<QComboBox>(world.dialog, "tray");
    CHECK(tray->count() == 3);
    CHECK(world.dialog.order().tray.isEmpty());
    CHECK(world.dialog.order().letterOrder == LetterOrder::forward);
    tray->setCurrentIndex(2);
    TrayDialog::find<QComboBox>(world.dialog, "duplex")->setCurrentIndex(3);
    TrayDialog::find<QCheckBox>(world.dialog, "reversed")->setChecked(true);
    CHECK(world.dialog.order().tray == words("InputSlot=Tray2"));
    CHECK(world.dialog.order().letterOrder == LetterOrder::reversed);
    TrayDialog::find<QPushButton>(world.dialog, "printNow")->click();

    PrintDialog again(world.ticks, world.settings, world.printers);
    CHECK(again.order().tray == words("InputSlot=Tray2"));
    CHECK(again.order().duplex == QPrinter::DuplexShortSide);
    CHECK(again.order().letterOrder == LetterOrder::reversed);
    // Both belong to the printer.
    TrayDialog::find<QComboBox>(again, "printer")->setCurrentIndex(1);
    CHECK(again.order().tray.isEmpty());
    CHECK(again.order().duplex == QPrinter::DuplexLongSide);
    CHECK(TrayDialog::find<QComboBox>(again, "tray")->count() == 1);
}

TEST_CASE("a remembered tray that the printer no longer has is the printer's own setting")
{
    TrayDialog world;
    world.settings.setTray(words("一階"), words("InputSlot=Tray9"));
    world.settings.setDuplex(words("一階"), words("oops"));
    const PrintDialog again(world.ticks, world.settings, world.printers);
    CHECK(again.order().tray.isEmpty());
    CHECK(again.order().duplex == QPrinter::DuplexNone);
}

TEST_CASE("the trays are read from the list of a printer's options")
{
    const std::vector<TrayChoice> trays =
        traysInOptions(words("PageSize/Media Size: *A4 A5\n"
                             "InputSlot/Media Source: *Auto Tray1 tray-2 Manual Roll\n"
                             "Duplex/2-Sided Printing: *None DuplexNoTumble\n"));
    std::vector<std::string> texts;
    for (const TrayChoice &tray : trays) texts.push_back((tray.key + u'|' + tray.text).toStdString());
    CHECK(texts == std::vector<std::string>{"InputSlot=Auto|自動", "InputSlot=Tray1|トレイ 1",
                                            "InputSlot=tray-2|トレイ 2", "InputSlot=Manual|手差し",
                                            "InputSlot=Roll|Roll"});
    CHECK(traysInOptions(words("PageSize/Media Size: *A4\n")).empty());
    CHECK(traysInOptions({}).empty());
}

TEST_CASE("the system's print command gets the tray as an option, and none for the printer's own setting")
{
    SpoolJob job;
    CHECK(!lpArguments(job).join(u' ').contains(words("InputSlot")));
    job.order.tray = words("InputSlot=Tray2");
    job.pdf = words("a.pdf");
    CHECK(lpArguments(job).join(u' ').endsWith(words("-o InputSlot=Tray2 a.pdf")));
}

TEST_CASE("a painted job uses the chosen tray, and the printer's own one without a choice")
{
    const TempFolder folder;
    const QString path = QString::fromStdString(folder / "o.pdf");
    auto used = QPrinter::Envelope;
    PrintOrder order;
    const auto print = [&] { PaintedJob(std::make_unique<TrayPrinter>(path, used), order, words("名"), {595, 842}); };
    print();
    const QPrinter::PaperSource own = used;
    order.tray = paintedTrayChoice(QPrinter::Lower).key;
    print();
    CHECK(used == QPrinter::Lower);
    order.tray = words("InputSlot=Tray1");
    print();
    CHECK(used == own);
    CHECK(paintedTrayChoice(QPrinter::Lower).text == words("下段"));
    CHECK(paintedTrayChoice(QPrinter::Tractor).text == words("トレイ ") + QString::number(QPrinter::Tractor));
}

TEST_CASE("letters are printed in the order of their numbers or reversed, painted and spooled alike")
{
    PrintOrder order;
    CHECK(inPrintOrder({1, 4, 7}, order) == std::vector<std::size_t>{1, 4, 7});
    order.letterOrder = LetterOrder::reversed;
    CHECK(inPrintOrder({1, 4, 7}, order) == std::vector<std::size_t>{7, 4, 1});

    for (const bool isSpooled : {false, true}) {
        CAPTURE(isSpooled);
        WindowWorld world(differentRows(3));
        const std::string spooled = world.folder / "spooled.pdf";
        if (isSpooled)
            world.spool = [&](const SpoolJob &job, const std::function<bool()> &) {
                writeBytes(spooled, bytesOf(job.pdf.toStdString()));
                return SpoolResult{};
            };
        world.openWindow();
        PrintOrder reversed = world.order();
        reversed.letterOrder = LetterOrder::reversed;
        world.window->print(reversed);
        const std::vector<std::string> pages = pagesOf(isSpooled ? spooled : world.jobPath(0));
        REQUIRE(pages.size() == 3);
        CHECK(contains(packed(pages[0]), "甲3"));
        CHECK(contains(packed(pages[2]), "甲1"));
    }
}

TEST_CASE("a reversed print that was refused names the letters that were sent and those that were not")
{
    WindowWorld world(differentRows(4));
    world.openWindow();
    PrintOrder order = world.order();
    order.letterOrder = LetterOrder::reversed;
    order.lettersPerJob = 2;
    world.spool = {};
    world.pagesPerJob = 100;
    std::size_t made = 0;
    ViewerServices services = world.services();
    const MakePrinter good = services.paths.makePrinter;
    services.paths.makePrinter = [&](const PrintOrder &each) { return ++made == 1 ? good(each) : nullptr; };
    world.window = std::make_unique<ViewerWindow>(world.script, std::make_unique<OpenLetters>(world.script), services);
    world.window->print(order);
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages[0].contains(words("プリンターに送った番号：3-4\n送っていない番号：1-2")));
}

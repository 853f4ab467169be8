// The conditions screen and the boxes, operated by mouse and keys in a fake world.

#include "adapters/qt/date_edit.h"
#include "adapters/qt/drop_down_list.h"
#include "adapters/qt/elided_label.h"
#include "adapters/qt/picture_box.h"
#include "adapters/qt/pointer_shape.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/working_program.h"
#include "printing/print_fixture.h"
#include "runtime/runtime_error.h"
#include "shell/start.h"
#include "shell/wait_form.h"
#include "support/rendered_contrast.h"

#include <doctest/doctest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTemporaryDir>
#include <QToolTip>
#include <QtTest/QTest>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::qt;

TEST_CASE("every way to leave the screen starts the menu program")
{
    Program program;
    SUBCASE("F12")
    {
        program.act([&] { program.key(Qt::Key_F12); });
    }
    SUBCASE("escape")
    {
        program.act([&] { program.key(Qt::Key_Escape); });
    }
    SUBCASE("the button")
    {
        program.act([&] { program.click("btnPrint(6)"); });
    }
    SUBCASE("the control box")
    {
        program.act([&] { program.top().close(); });
    }
    CHECK(program.runs());
    CHECK(program.handedBack());
}

TEST_CASE("the tab key moves through the screen from the top, and from its end to its beginning")
{
    Program program;
    std::vector<std::string> walked;
    program.act([&] {
        for (int steps = 0; steps < 28; ++steps) {
            walked.push_back(program.focused());
            program.key(Qt::Key_Tab);
        }
    });
    CHECK(program.runs());
    CHECK(walked == std::vector<std::string>{"optPrint(0)",   "optPrint(1)",     "optPrint(2)",     "optObject(0)",
                                             "optObject(1)",  "optObject(2)",    "btn_StaffSelect", "imNum_StaffNo",
                                             "cbSejyutsu",    "btn_KanjaSelect", "imNum_CD",        "optTgtDate(0)",
                                             "imD_Out",       "optTgtDate(1)",   "imD_LastDay",     "cmbHoken",
                                             "optTrust(0)",   "optTrust(1)",     "optDspPeriod(0)", "optDspPeriod(1)",
                                             "imSetDateFrom", "imSetDateTo",     "optSyomei(0)",    "optSyomei(1)",
                                             "imSyomei",      "btnPrint(0)",     "btnPrint(1)",     "btnPrint(6)"});
    CHECK(program.handedBack());
}

namespace {

bool isWhole(const QWidget &widget)
{
    return widget.visibleRegion().boundingRect() == widget.rect();
}

} // namespace

TEST_CASE("on a low screen the command buttons stay visible while the conditions are scrolled")
{
    Program program;
    program.act([&] {
        program.top().setFixedHeight(400);
        for (const char *field : {"optPrint(0)", "imSyomei"}) {
            program.widget(field).setFocus();
            QApplication::processEvents();
            for (const char *command : {"btnPrint(0)", "btnPrint(1)", "btnPrint(6)"}) {
                CAPTURE(field);
                CAPTURE(command);
                CHECK(isWhole(program.widget(command)));
            }
        }
    });
    CHECK(program.runs());
}

TEST_CASE("on a low screen the conditions are scrolled to the focus by the tab key, an arrow key and the program")
{
    Program program;
    program.act([&] {
        program.top().setFixedHeight(400);
        QApplication::processEvents();
        CHECK_FALSE(isWhole(program.widget("imSyomei")));
        program.widget("imSetDateTo").setFocus();
        for (int stop = 0; stop < 2; ++stop) program.key(Qt::Key_Tab);
        CHECK(program.focused() == "optSyomei(1)");
        CHECK(isWhole(program.widget("optSyomei(1)")));
        program.widget("optPrint(0)").setFocus();
        CHECK(isWhole(program.widget("optPrint(0)")));
        program.top().setFixedHeight(220);
        program.key(Qt::Key_Up); // from the first option to the last
        CHECK(program.focused() == "optPrint(2)");
        CHECK(isWhole(program.widget("optPrint(2)")));
        program.top().moveFocus(program.form.imSyomei);
        CHECK(isWhole(program.widget("imSyomei")));
    });
    CHECK(program.runs());
}

TEST_CASE("the first field has a visible focus frame when the screen opens")
{
    Program program;
    program.act([&] {
        QWidget &first = program.widget("optPrint(0)");
        CHECK(program.focused() == "optPrint(0)");
        const QImage with = paintedImage(first);
        program.widget("imSyomei").setFocus(Qt::OtherFocusReason);
        QApplication::processEvents();
        CHECK(with != paintedImage(first));
    });
    CHECK(program.runs());
}

TEST_CASE("the name of the patient is grey while it belongs to another number than the one in the box")
{
    Program program;
    const auto isGrey = [&] { return program.widget("lbl_SelKanja").foregroundRole() == QPalette::PlaceholderText; };
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] {
        program.widget("spr_1ran").setFocus();
        program.key(Qt::Key_Down);
        program.key(Qt::Key_F5);
    });
    program.act([&] {
        REQUIRE(program.form.lbl_SelKanja.Caption.get() == "青木 一郎");
        CHECK_FALSE(isGrey());
        QWidget &box = program.widget("imNum_CD");
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_End);
        QTest::keyClick(&box, Qt::Key_2);
        CHECK(isGrey());
        CHECK_FALSE(program.widget("lbl_SelKanja").toolTip().isEmpty());
        QTest::keyClick(&box, Qt::Key_Backspace);
        CHECK_FALSE(isGrey());
        CHECK(program.widget("lbl_SelKanja").toolTip().isEmpty());
        QTest::keyClick(&box, Qt::Key_Backspace);
        CHECK(isGrey());
        program.form.imNum_CD.Value = std::int32_t{22}; // the same name by chance
        CHECK_FALSE(isGrey());
    });
    CHECK(program.runs());
}

TEST_CASE("a name without room ends in an ellipsis, and its tool tip shows all of it")
{
    Program program;
    program.act([&] {
        const auto isCut = [&] { return dynamic_cast<ElidedLabel &>(program.widget("lbl_SelKanja")).isCut(); };
        program.form.lbl_SelKanja.Caption = "青木 一郎";
        CHECK_FALSE(isCut());
        const std::string name = "とても長い名前の利用者とても長い名前の利用者とても長い名前の利用者";
        program.form.lbl_SelKanja.Caption = name;
        CHECK(isCut());
        QWidget &label = program.widget("lbl_SelKanja");
        QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&label, &asked);
        CHECK(fromQt(QToolTip::text()) == name);

        program.form.cbSejyutsu.AddItem(name, 99);
        program.form.cbSejyutsu.chooseItemData(99);
        auto &list = dynamic_cast<DropDownList &>(program.widget("cbSejyutsu"));
        CHECK(list.isCut());
        QApplication::sendEvent(&list, &asked);
        CHECK(fromQt(QToolTip::text()) == name);
        CHECK(fromQt(list.currentData(Qt::ToolTipRole).toString()) == name);
        list.showPopup();
        CHECK(list.view()->textElideMode() == Qt::ElideRight);
        list.hidePopup();
        program.form.cbSejyutsu.ListIndex = 0;
        CHECK_FALSE(list.isCut());
        QToolTip::hideText();
    });
    CHECK(program.runs());
}

TEST_CASE("the arrow keys select the options of a frame except the hidden one")
{
    Program program;
    program.act([&] {
        program.widget("optTgtDate(0)").setFocus();
        program.key(Qt::Key_Down);
        CHECK(program.form.optTgtDate.marked() == 1);
        program.key(Qt::Key_Down);
        CHECK(program.form.optTgtDate.marked() == 0);
        program.key(Qt::Key_Up);
        CHECK(program.form.optTgtDate.marked() == 1);
    });
    CHECK(program.runs());
}

TEST_CASE("a click on a selected option leaves it selected")
{
    Program program;
    program.act([&] {
        program.click("optTrust(1)");
        program.click("optTrust(1)");
        CHECK(program.form.optTrust.marked() == 1);
        CHECK(dynamic_cast<QAbstractButton &>(program.widget("optTrust(1)")).isChecked());
    });
    CHECK(program.runs());
}

TEST_CASE("the space bar and the return key press the button with the focus")
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        Program program;
        std::string box;
        program.act([&] {
            program.widget("btnPrint(0)").setFocus();
            program.key(key);
        });
        program.act([&] { box = answerTopBox(); });
        CHECK(program.runs());
        CHECK(box == "出力対象となる日にちを選択してください。");
    }
}

TEST_CASE("Alt and the access key open a menu")
{
    Program program;
    program.act([&] {
        auto *bar = program.top().findChild<QMenuBar *>();
        auto *menu = program.top().findChild<QAction *>("mnFunc")->menu();
        program.key(Qt::Key_F, Qt::AltModifier);
        CHECK(menu->isVisible());
        menu->close();
        bar->setActiveAction(nullptr);
    });
    CHECK(program.runs());
}

TEST_CASE("escape closes a menu and returns the focus to the control that had it")
{
    Program program;
    program.act([&] {
        const QPointer<QWidget> before = program.top().focusWidget();
        auto *menu = program.top().findChild<QAction *>("mnFunc")->menu();
        program.key(Qt::Key_F, Qt::AltModifier);
        REQUIRE(menu->isVisible());
        QTest::keyClick(menu, Qt::Key_Escape);
        CHECK_FALSE(menu->isVisible());
        QApplication::processEvents();
        REQUIRE(before != nullptr);
        CHECK(program.top().focusWidget() == before);
    });
    CHECK(program.runs());
}

TEST_CASE("a date typed into its box counts for a print by the function key")
{
    Program program;
    program.act([&] {
        auto &box = dynamic_cast<DateEdit &>(program.widget("imD_Out"));
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, "H31.4");
        program.key(Qt::Key_F1);
    });
    program.act([&] { answerTopBox(); });
    CHECK(program.runs());
    CHECK(program.form.imD_Out.Value.get() == Variant(DateSerial(2019, 4, 1)));
}

TEST_CASE("a print with an unreadable target month is refused, and the text stays as typed")
{
    Program program;
    std::string box;
    program.act([&] {
        program.click("optTgtDate(0)");
        program.click("optObject(0)");
        auto &date = dynamic_cast<DateEdit &>(program.widget("imD_Out"));
        date.setFocus();
        date.selectAll();
        QTest::keyClicks(&date, "R8.13");
        program.click("btnPrint(0)");
    });
    program.act([&] { box = answerTopBox(); });
    program.act([&] { answerTopBox(); });
    program.act([&] { CHECK(fromQt(dynamic_cast<QLineEdit &>(program.widget("imD_Out")).text()) == "R8.13"); });
    CHECK(program.runs());
    CHECK(box == "(94)Null の使い方が不正です。");
}

TEST_CASE("a thousand quick clicks on print and preview give a thousand runs, one after the other")
{
    constexpr int kClicks = 1000;
    Program program;
    program.world.database.resultsByText.emplace_back("SCHEDULE", patients({{}}));
    int deepest = 0;
    int running = 0;
    program.form.onMousePointer = [&](std::int16_t kind) {
        // The pointer is reset twice at the end of a run.
        running = kind == kPointerHourglass ? running + 1 : 0;
        deepest = std::max(deepest, running);
    };
    program.act([&] {
        for (const char *option :
             {"optPrint(0)", "optObject(0)", "optTgtDate(0)", "optTrust(0)", "optDspPeriod(0)", "optSyomei(0)"})
            program.click(option);
        for (int click = 0; click < kClicks; ++click) {
            QWidget &button = program.widget(click % 2 == 0 ? "btnPrint(0)" : "btnPrint(1)");
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
                QApplication::postEvent(
                    &button, new QMouseEvent(type, QPointF(9, 9), button.mapToGlobal(QPointF(9, 9)), Qt::LeftButton,
                                             type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {}));
        }
    });
    program.act([&] { CHECK(program.world.processes.started.size() == kClicks); });
    CHECK(program.runs());
    CHECK(deepest == 1);
}

TEST_CASE("the hourglass is shown over all windows and hidden during a box")
{
    WindowFixture fixture;
    setPointerShape(kPointerHourglass);
    Qt::CursorShape overBox = Qt::WaitCursor;
    fixture.turns.then([&] {
        overBox =
            QGuiApplication::overrideCursor() == nullptr ? Qt::ArrowCursor : QGuiApplication::overrideCursor()->shape();
        answerTopBox();
    });
    fixture.boxes.show("待ってください", Icon::none, "");
    CHECK(overBox == Qt::ArrowCursor);
    REQUIRE(QGuiApplication::overrideCursor() != nullptr);
    CHECK(QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor);
    setPointerShape(kPointerDefault);
    CHECK(QGuiApplication::overrideCursor() == nullptr);
}

TEST_CASE("a box shows its text literally with its line breaks, and the application's title if it has none of its own")
{
    WindowFixture fixture;
    std::string text, title;
    fixture.turns.then([&] {
        title = fromQt(QApplication::activeModalWidget()->windowTitle());
        text = answerTopBox();
    });
    fixture.boxes.show("<b>一</b>\r\n二\r三", Icon::critical, "");
    CHECK(text == "<b>一</b>\n二\n三");
    CHECK(title == "委任状印刷");
    fixture.turns.then([&] {
        title = fromQt(QApplication::activeModalWidget()->windowTitle());
        answerTopBox();
    });
    fixture.boxes.show("一", Icon::information, "情報");
    CHECK(title == "情報");
}

namespace {

/// A form with one picture.
struct OnePicture : Form {
    OnePicture() : Form("frmPicture") { add(image); }
    ImageBox image{"ImgWall"};
};

/// True when the window of a form with this picture shows it.
bool isPainted(WindowFixture &fixture, const std::string &path)
{
    OnePicture form;
    form.image.Picture = path;
    const FormWindow window(form, fixture.services, nullptr);
    return window.widgetAs<PictureBox>("ImgWall").hasPicture();
}

} // namespace

TEST_CASE("a picture with a known signature that cannot be decoded is left blank, a file without one is refused")
{
    const QTemporaryDir folder;
    const std::string path = fromQt(folder.filePath("wall.bmp"));
    WindowFixture fixture;
    for (const std::string bytes :
         {"BMx", "BM and then nothing that belongs to a bitmap", "\xD7\xCD\xC6\x9A placeable"}) {
        fixture.world.files.put(path, bytes);
        std::ofstream(path, std::ios::binary) << bytes;
        CHECK_NOTHROW(fixture.windows.checkPicture(path));
        CHECK_FALSE(isPainted(fixture, path));
    }
    fixture.world.files.put(path, "text");
    CHECK_THROWS_WITH_AS(fixture.windows.checkPicture(path), "ピクチャが不正です。", RuntimeError);

    for (const char *format : {"bmp", "png", "gif", "jpg", "ico"}) {
        CAPTURE(format);
        if (!QPixmap(16, 16).save(toQt(path), format)) continue; // the toolkit cannot write GIF
        CHECK(isPainted(fixture, path));
    }
}

TEST_CASE("the screen opens over a wallpaper that cannot be decoded")
{
    Program program;
    program.world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_SYS=\\SYS\nSYSTEM_TMP=\\TMP\nSYSTEM_ICON=\\ICON\n"
                                                          "SYSTEM_DATA=\\DATA\nWALLPAPER=wall.wmf\nBASEID=0102\n");
    program.world.files.put("C:\\SUITE\\ICON\\wall.wmf", "\xD7\xCD\xC6\x9A placeable");
    program.act([&] {
        CHECK(program.top().objectName() == "frmPrintInin");
        program.click("btnPrint(6)");
    });
    CHECK(program.runs());
    CHECK(program.handedBack());
}

TEST_CASE("a notice closes by itself")
{
    WindowFixture fixture;
    frmWaitMsg notice(fixture.app);
    fixture.windows.show(notice, Modality::modal);
    CHECK_FALSE(notice.isLoaded());
    CHECK(fixture.windows.windowOf(notice) == nullptr);
}

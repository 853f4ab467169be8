// Counts the keys and clicks of the daily jobs, from the opened conditions screen to the started form tool. The table is
// in docs/keys-per-job.md.

#include "adapters/qt/working_program.h"
#include "printing/print_fixture.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QTableView>

#include <algorithm>

using namespace inin;
using namespace inin::qt;

namespace {

/// The return key or the click on the default button of the form tool's print dialog.
constexpr int kInFormTool = 1;

/// The program with the choices that a run stored: standard form, planned data of a month, head office. Loading them
/// leaves both dates of visits usable, and both dates of the period: each is one more stop of the tab key.
struct CountedProgram : Program {
    CountedProgram()
    {
        world.database.resultsByText.emplace_back("SELECT * FROM SCHEDULE", visits("nDate", {std::int32_t{20261128}}));
        world.database.resultsByText.emplace_back("FROM HOKENJA", patients({{}}));
        world.files.putText("C:\\SUITE\\DATA\\印刷設定.ini", "[委任状]\n対象データ=1\n受任者=1\n対象期間=1\n"
                                                             "表示期間=1\n帳票種類=0\n署名日=0\n");
    }
    void press(Qt::Key code, int times = 1)
    {
        for (int time = 0; time < times; ++time) {
            key(code);
            ++used;
        }
    }
    void pressBack(int times)
    {
        for (int time = 0; time < times; ++time) {
            key(Qt::Key_Backtab, Qt::ShiftModifier);
            ++used;
        }
    }
    void type(const char *text)
    {
        for (const char *character = text; *character != '\0'; ++character) {
            QTest::keyClick(top().focusWidget(), *character);
            ++used;
        }
    }
    void clickOn(const char *control)
    {
        click(control);
        ++used;
    }
    /// Runs the acts; the number of keys or clicks if the form tool was started for one letter, otherwise -1.
    [[nodiscard]] int count()
    {
        CHECK(runs());
        const bool isPrinted = std::ranges::any_of(world.processes.started, [](const std::string &command) {
            return command.find("WfdCom.dat") != std::string::npos;
        });
        return isPrinted && form.iRowCount == 1 ? used + kInFormTool : -1;
    }

    int used = 0;
};

} // namespace

TEST_CASE("a month's letters take 2 keys or 2 clicks")
{
    CountedProgram program;
    SUBCASE("keys")
    {
        program.act([&] { program.press(Qt::Key_F1); });
    }
    SUBCASE("clicks")
    {
        program.act([&] { program.clickOn("btnPrint(0)"); });
    }
    CHECK(program.count() == 2);
}

TEST_CASE("the letters of one staff member take 11 keys or 4 clicks")
{
    CountedProgram program;
    int wanted = 0;
    SUBCASE("keys")
    {
        wanted = 11;
        program.act([&] {
            program.press(Qt::Key_Tab, 7);
            program.type("11");
            program.press(Qt::Key_F1);
        });
    }
    SUBCASE("clicks")
    {
        wanted = 4;
        program.act([&] {
            auto &list = dynamic_cast<QComboBox &>(program.widget("cbSejyutsu"));
            program.clickOn("cbSejyutsu");
            QAbstractItemView &items = *list.view();
            const QPoint item = items.visualRect(items.model()->index(1, 0)).center();
            // The list ignores a release of the button before the pointer has moved. A move that is sent does not depend on
            // where the pointer was before.
            QMouseEvent move(QEvent::MouseMove, item, items.viewport()->mapToGlobal(item), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QApplication::sendEvent(items.viewport(), &move);
            QTest::mouseClick(items.viewport(), Qt::LeftButton, {}, item);
            ++program.used;
            program.clickOn("btnPrint(0)");
        });
    }
    CHECK(program.count() == wanted);
    CHECK(program.form.nStaffNo == 11);
}

TEST_CASE(
    "the letter of one patient takes 21 keys or 7 clicks with a search by name, 14 keys or 3 clicks with the number")
{
    CountedProgram program;
    int wanted = 0;
    SUBCASE("keys with a search by four characters")
    {
        wanted = 21;
        program.act([&] {
            program.press(Qt::Key_Tab, 9);
            program.press(Qt::Key_Space);
        });
        program.act([&] {
            program.press(Qt::Key_Tab, 2);
            program.type("itou");
            program.press(Qt::Key_F4);
            program.press(Qt::Key_Down, 1);
            program.press(Qt::Key_F5);
        });
        program.act([&] { program.press(Qt::Key_F1); });
    }
    SUBCASE("keys with the number")
    {
        wanted = 14;
        program.act([&] {
            program.press(Qt::Key_Tab, 10);
            program.type("21");
            program.press(Qt::Key_F1);
        });
    }
    SUBCASE("clicks with the number")
    {
        wanted = 3 + 2; // clicks and digits
        program.act([&] {
            program.clickOn("imNum_CD");
            program.type("21");
            program.clickOn("btnPrint(0)");
        });
    }
    SUBCASE("clicks with a search by four characters")
    {
        wanted = 7 + 4; // clicks and characters
        program.act([&] { program.clickOn("btn_KanjaSelect"); });
        program.act([&] {
            program.clickOn("txt_SiboriKana");
            program.type("itou");
            program.clickOn("but_Read");
            auto &list = dynamic_cast<QTableView &>(program.widget("spr_1ran"));
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 1)).center());
            ++program.used;
            program.clickOn("but_Act(0)");
        });
        program.act([&] { program.clickOn("btnPrint(0)"); });
    }
    CHECK(program.count() == wanted);
    CHECK(program.form.nKanjaNo == 21);
}

TEST_CASE("an agent's letters take 13 keys or 3 clicks")
{
    CountedProgram program;
    int wanted = 0;
    SUBCASE("keys, backwards from the first option")
    {
        wanted = 13;
        program.act([&] {
            program.pressBack(10);
            program.press(Qt::Key_Space);
            program.press(Qt::Key_F1);
        });
    }
    SUBCASE("keys, from the top")
    {
        wanted = 19;
        program.act([&] {
            program.press(Qt::Key_Tab, 16);
            program.press(Qt::Key_Down);
            program.press(Qt::Key_F1);
        });
    }
    SUBCASE("clicks")
    {
        wanted = 3;
        program.act([&] {
            program.clickOn("optTrust(1)");
            program.clickOn("btnPrint(0)");
        });
    }
    CHECK(program.count() == wanted);
    CHECK(program.form.iTrustKind == 2);
}

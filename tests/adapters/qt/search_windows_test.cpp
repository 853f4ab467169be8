// The search windows over the conditions screen, operated by mouse and keys in a fake world.

#include "adapters/qt/working_program.h"
#include "screen/grid.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTableView>

using namespace inin;
using namespace inin::qt;

namespace {

void dropText(QWidget &target, const QString &text)
{
    QMimeData data;
    data.setText(text);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    // Delivered to the target directly: the toolkit's own handling expects a drag in progress.
    static_cast<QObject &>(target).event(&drop);
}

} // namespace

TEST_CASE("a patient is picked by keyboard alone")
{
    Program program;
    program.act([&] {
        program.widget("btn_KanjaSelect").setFocus();
        program.key(Qt::Key_Space);
    });
    program.act([&] {
        CHECK(program.top().windowTitle() == QString::fromUtf8("利用者マスター検索"));
        program.widget("spr_1ran").setFocus();
        program.key(Qt::Key_Down);
        program.key(Qt::Key_End);
        program.key(Qt::Key_F5);
    });
    program.act([&] {
        CHECK(program.form.imNum_CD.Value.get() == Variant(std::int32_t{22}));
        CHECK(dynamic_cast<QLineEdit &>(program.widget("imNum_CD")).text() == "22");
    });
    CHECK(program.runs());
}

TEST_CASE("a search window closed by its control box leaves the selection on all patients")
{
    Program program;
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] { program.top().close(); });
    program.act([&] { CHECK(program.form.lbl_SelKanja.Caption.get() == "(全員)"); });
    CHECK(program.runs());
    CHECK(program.handedBack());
}

TEST_CASE("a search window cannot be closed during its search")
{
    Program program;
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] {
        FormWindow &search = program.top();
        // The close event is delivered when the search processes waiting events.
        QApplication::postEvent(&search, new QCloseEvent);
        program.key(Qt::Key_F4);
        CHECK(search.isVisible());
        CHECK(program.top().widgetAs<QTableView>("spr_1ran").model()->rowCount() == 2);
    });
    program.act([&] { program.key(Qt::Key_F12); });
    CHECK(program.runs());
}

TEST_CASE("a box over a search window waits for its answer, and the window stays open")
{
    Program program;
    std::string box;
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] { program.key(Qt::Key_F5); });
    program.act([&] { box = answerTopBox(); });
    program.act([&] {
        CHECK(program.top().objectName() == QString::fromUtf8("frm患者検索"));
        program.key(Qt::Key_F12);
    });
    CHECK(program.runs());
    CHECK(box == "有効な行が選択されていません！");
}

TEST_CASE("the return key moves through the boxes of a search window and does nothing on its buttons")
{
    Program program;
    std::vector<std::string> walked;
    program.act([&] { program.click("btn_StaffSelect"); });
    program.act([&] {
        for (int steps = 0; steps < 4; ++steps) {
            walked.push_back(program.focused());
            program.key(Qt::Key_Return);
        }
        walked.push_back(program.focused());
        program.key(Qt::Key_Return);
        walked.push_back(program.focused());
        program.key(Qt::Key_F12);
    });
    CHECK(program.runs());
    std::string path;
    for (const std::string &stop : walked) path += stop + " ";
    CHECK(path == "in_SiboriID txt_SiboriName txt_SiboriKana chkEndSejutsuha but_Read but_Read ");
}

TEST_CASE("the down key goes from a condition to the list and selects its first row, a selected row stays selected")
{
    Program program;
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] {
        const auto &grid = dynamic_cast<const Grid &>(*program.top().form().find("spr_1ran"));
        for (const char *box : {"in_SiboriID", "txt_SiboriName", "txt_SiboriKana", "chkEndKanja", "imNum_StaffNo"}) {
            CAPTURE(box);
            program.widget(box).setFocus();
            program.key(Qt::Key_Down);
            CHECK(program.focused() == "spr_1ran");
            CHECK(grid.ActiveRow == 1);
        }
        program.key(Qt::Key_Down);
        program.widget("txt_SiboriName").setFocus();
        program.key(Qt::Key_Down);
        CHECK(grid.ActiveRow == 2);
        program.key(Qt::Key_F5);
    });
    program.act([&] { CHECK(program.form.imNum_CD.Value.get() == Variant(std::int32_t{22})); });
    CHECK(program.runs());
}

TEST_CASE("the tab key walks through the search windows row by row, from left to right")
{
    Program program;
    const auto walksByEye = [&] {
        program.widget("in_SiboriID").setFocus();
        const QWidget *before = program.top().focusWidget();
        while (program.focused() != "spr_1ran") {
            program.key(Qt::Key_Tab);
            const QWidget *now = program.top().focusWidget();
            const QRect last(before->mapTo(&program.top(), QPoint()), before->size());
            const QRect next(now->mapTo(&program.top(), QPoint()), now->size());
            CAPTURE(program.focused());
            CHECK((next.left() > last.right() || next.top() > last.bottom()));
            before = now;
        }
    };
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] {
        walksByEye();
        program.key(Qt::Key_F12);
    });
    program.act([&] { program.click("btn_StaffSelect"); });
    program.act([&] {
        walksByEye();
        program.key(Qt::Key_F12);
    });
    CHECK(program.runs());
}

TEST_CASE("the label of each condition is next to its box")
{
    Program program;
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] {
        int labels = 0;
        for (const QLabel *label : program.top().findChildren<QLabel *>()) {
            const QWidget *box = label->buddy();
            if (box == nullptr) continue;
            ++labels;
            CAPTURE(fromQt(label->text()));
            const int end = label->geometry().left() +
                            (label->alignment() & Qt::AlignRight ? label->width() : label->sizeHint().width());
            CHECK(box->geometry().left() - end < 40);
        }
        CHECK(labels == 4);
        program.key(Qt::Key_F12);
    });
    CHECK(program.runs());
}

TEST_CASE("a megabyte of text dropped into a text box is cut to the length of the box, and the search uses the rest")
{
    Program program;
    program.act([&] { program.click("btn_KanjaSelect"); });
    program.act([&] {
        QWidget &box = program.widget("txt_SiboriName");
        dropText(box, QString(1 << 20, QChar(u'青')));
        const auto &record = dynamic_cast<const TextBox &>(*program.top().form().find("txt_SiboriName"));
        const QString held = dynamic_cast<QLineEdit &>(box).text();
        CHECK(held.size() == 32767);
        CHECK(toQt(record.Text) == held);
        program.key(Qt::Key_F12);
    });
    CHECK(program.runs());
}

#include "printing/form_document_choice.h"

#include "printing/print_fixture.h"

#include <doctest/doctest.h>

namespace inin {

namespace {
constexpr const char *kFormats = "C:\\SUITE\\DATA\\帳票Format.ini";
} // namespace

TEST_CASE_FIXTURE(PrintFixture, "a missing format file gives no form and shows nothing")
{
    CHECK(csGetFormatFile(world.app, "委任状", "委任状") == "");
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("the entry of the format file is cut at the first NUL and trimmed on the right only")
{
    struct Row {
        const char *text;
        const char *form;
    };
    for (const Row &row :
         {Row{"[委任状]\n委任状=特別.wfd\n", "特別.wfd"}, Row{"[委任状]\n委任状=特別.wfd   \n", "特別.wfd"},
          Row{"[委任状]\n委任状=\"  特別.wfd  \"\n", "  特別.wfd"}, Row{"[委任状]\n委任状=\n", ""},
          Row{"[委任状]\n", ""}, Row{"[ほか]\n委任状=x.wfd\n", ""}, Row{"[委任状]\nほか=x.wfd\n", ""}, Row{"", ""}}) {
        PrintFixture fixture;
        fixture.world.files.putText(kFormats, row.text);
        CAPTURE(row.text);
        CHECK(csGetFormatFile(fixture.world.app, "委任状", "委任状") == row.form);
        CHECK(fixture.world.boxes.shown.empty());
    }
}

TEST_CASE_FIXTURE(PrintFixture, "a run-time error while reading the format file shows a plain box and gives no form")
{
    world.files.openInputErrors["c:\\suite\\massage.ini"] = 71;

    CHECK(csGetFormatFile(world.app, "委任状", "委任状") == "");
    CHECK(onlyBox() == ShownBox{"Error:ディスクが準備されていません。", Icon::none, ""});
}

} // namespace inin

#include "printing/shared_text.h"

#include "printing/print_fixture.h"

#include <doctest/doctest.h>

#include <string>

namespace inin {

TEST_CASE("a shared text holds the bytes that it was made of")
{
    const std::string bytes("療養費\0委任状", 19);
    CHECK(SharedText(bytes).view() == bytes);
    CHECK(SharedText().view().empty());
    CHECK(SharedText("").view().empty());
}

TEST_CASE("a copy shares the bytes and keeps them after the first text is gone")
{
    SharedText copy;
    const char *place = nullptr;
    {
        const SharedText first("株式会社さくら治療院");
        place = first.view().data();
        copy = first;
    }
    CHECK(copy.view().data() == place);
    CHECK(copy == "株式会社さくら治療院");
}

TEST_CASE("an assignment to one copy leaves the others as they are")
{
    const SharedText first("甲");
    SharedText second = first;
    second = "乙";
    CHECK(first == "甲");
    CHECK(second == "乙");
    second = SharedText(second);
    CHECK(second == "乙");
}

TEST_CASE("a text that was moved from is empty")
{
    SharedText first("甲");
    const SharedText second = std::move(first);
    CHECK(second == "甲");
    CHECK(first.view().empty()); // NOLINT(bugprone-use-after-move): this state is the claim
}

TEST_CASE_FIXTURE(PrintFixture, "consecutive letters share the texts that are the same in both")
{
    answer(patients({{{"RiyouName", "利用　花子"}}, {{"RiyouName", "利用　太郎"}}, {{"RiyouName", "利用　太郎"}}}));
    REQUIRE(form.iGetKanjaDataMonth() == 0);

    const auto place = [this](std::size_t letter, IninField field) {
        return (form.aIninRow.at(letter).*field).view().data();
    };
    CHECK(place(0, &IninRow::会社名称) == place(1, &IninRow::会社名称));
    CHECK(place(0, &IninRow::金融機関名２) == place(2, &IninRow::金融機関名２));
    CHECK(place(1, &IninRow::利用者氏名) == place(2, &IninRow::利用者氏名));
    CHECK(place(0, &IninRow::利用者氏名) != place(1, &IninRow::利用者氏名));
}

} // namespace inin

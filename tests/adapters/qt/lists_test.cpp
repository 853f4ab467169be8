#include "adapters/qt/form_window.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/window_fixture.h"

#include <doctest/doctest.h>

#include <QComboBox>
#include <QListWidget>

using namespace inin;
using namespace inin::qt;

namespace {

/// A form with a drop-down list and an open list.
struct TwoLists : Form {
    TwoLists() : Form("frmLists")
    {
        standing.Style = ListStyle::open;
        add(dropping);
        add(standing);
    }
    ListBox dropping{"cbList"};
    ListBox standing{"lstList"};
};

std::vector<std::string> textsOf(const QComboBox &list)
{
    std::vector<std::string> texts;
    for (int index = 0; index < list.count(); ++index) texts.push_back(fromQt(list.itemText(index)));
    return texts;
}

std::vector<std::string> textsOf(const QListWidget &list)
{
    std::vector<std::string> texts;
    for (int index = 0; index < list.count(); ++index) texts.push_back(fromQt(list.item(index)->text()));
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

TEST_CASE("a list that is filled again shows only the new entries and the new selection")
{
    WindowFixture fixture;
    TwoLists form;
    const FormWindow window(form, fixture.services, nullptr);
    const auto &dropping = window.widgetAs<QComboBox>("cbList");
    const auto &standing = window.widgetAs<QListWidget>("lstList");
    for (ListBox *list : {&form.dropping, &form.standing}) {
        for (const char *entry : {"一", "二", "三"}) list->AddItem(entry, 0);
        list->ListIndex = 2;
    }
    CHECK(textsOf(dropping) == Texts{"一", "二", "三"});
    CHECK(textsOf(standing) == Texts{"一", "二", "三"});
    CHECK(dropping.currentIndex() == 2);
    CHECK(standing.currentRow() == 2);
    for (ListBox *list : {&form.dropping, &form.standing}) {
        list->Clear();
        list->AddItem("四", 0);
    }
    CHECK(textsOf(dropping) == Texts{"四"});
    CHECK(textsOf(standing) == Texts{"四"});
    CHECK(dropping.currentIndex() == -1);
    CHECK(standing.currentRow() == -1);
}

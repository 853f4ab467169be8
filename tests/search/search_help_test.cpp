#include "search/search_fixture.h"

using namespace inin;

TEST_CASE_TEMPLATE("the help of a search list is the suite's first page", List, PatientList, StaffList)
{
    ListFixture<List> list;
    list.world.files.putText("C:\\SUITE\\Sorvin.ver", "[OnlineHelp]\nADDRESS=http://help.example/\n");
    list.world.files.putText("C:\\SUITE\\EmapUser.ini", "ZENRIN_USER=ab\n");
    list.opened();
    press(list.window.mnDispHelp);
    CHECK(list.world.processes.opened == std::vector<std::string>{"http://help.example/?zi=ba&zp=&lk=1"});
    CHECK(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("a search list has a command in the menu bar for each key, and its help below ヘルプ", List,
                   PatientList, StaffList)
{
    struct Entry {
        const char *name;
        const char *menu;
        const char *caption;
    };
    ListFixture<List> list;
    for (const Entry &entry : {Entry{"mnF04", "", "抽出"},
                               {"mnF05", "", "確定"},
                               {"mnF12", "", "戻る"},
                               {"mnHelp", "", "ヘルプ(&H)"},
                               {"mnDispHelp", "mnHelp", "オンラインヘルプ(&M)"}}) {
        CAPTURE(entry.name);
        const Control *control = list.window.find(entry.name);
        REQUIRE(control != nullptr);
        CHECK((control->Container == nullptr ? "" : control->Container->name()) == entry.menu);
        CHECK(control->Caption.get() == entry.caption);
    }
}

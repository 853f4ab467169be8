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

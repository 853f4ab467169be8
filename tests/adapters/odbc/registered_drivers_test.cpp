// Which drivers a connection string may name when the system's list of drivers is registered/odbcinst.ini.

#include "adapters/odbc/driver_stage.h"
#include "adapters/odbc/odbc_handle.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::odbc;
using namespace inin::test;

namespace {

std::string openingError(const std::string &connectionString)
{
    const auto connection = makeOdbcDatabase()->newConnection();
    return errorOf([&] { connection->Open(connectionString, "", "", -1); }).description();
}

} // namespace

TEST_CASE("a registered driver is listed by its name, and by its library if that is a path")
{
    CHECK(OdbcEnvironment().drivers() == std::vector<std::string>{"Own", "/opt/own/libown.so", "FreeTDS"});
}

TEST_CASE("the path of a registered library reaches the driver manager; any other path is refused earlier")
{
    CHECK(openingError("Driver=/opt/own/libown.so;Server=h") == "Can't open lib '/opt/own/libown.so' : file not found");
    CHECK(openingError("Driver=/opt/own/libother.so;Server=h") ==
          "the connection string names a driver by a path that is not registered");
}

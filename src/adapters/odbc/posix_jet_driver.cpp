#include "adapters/odbc/jet_dao.h"
#include "adapters/odbc/mdb_driver.h"

namespace inin::odbc {

std::string jetDriver()
{
    return mdbDriverLibrary();
}

DaoAccess jetAccess()
{
    return DaoAccess::readOnly;
}

} // namespace inin::odbc

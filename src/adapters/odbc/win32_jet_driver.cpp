#include "adapters/odbc/jet_dao.h"

namespace inin::odbc {

std::string jetDriver()
{
    return "Microsoft Access Driver (*.mdb, *.accdb)";
}

DaoAccess jetAccess()
{
    return DaoAccess::readWrite;
}

} // namespace inin::odbc

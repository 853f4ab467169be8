#include "adapters/native/native_platform.h"

bool inin::startsOnlyAsAdministrator(const std::string &, const std::string &)
{
    return false;
}

bool inin::isOnlyFor32BitPrograms(ServerName, const std::string &)
{
    return false;
}

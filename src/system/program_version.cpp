#include "system/program_version.h"

namespace inin {

std::string_view programVersion()
{
    return ININ_VERSION;
}

} // namespace inin

#include "system/web_address.h"

namespace inin {

bool isWebAddress(std::string_view address)
{
    return address.starts_with("http://") || address.starts_with("https://");
}

} // namespace inin

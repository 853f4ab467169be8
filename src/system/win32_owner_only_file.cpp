#include "system/file_path.h"

namespace inin {

void createForOwner(const std::string &) {} // a file gets the rights that its folder gives to new files

} // namespace inin

#include "system/file_path.h"

namespace inin {

void createForOwner(const std::string &) {} // a new file inherits the permissions of its folder

} // namespace inin

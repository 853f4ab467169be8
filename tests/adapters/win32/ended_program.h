#pragma once

#include "system/win32_path.h"
#include "system/windows_names.h"

#include <string>

namespace inin {

/// Deletes a program that was started, as soon as it has ended; a running one cannot be deleted.
inline void removeOnceEnded(const std::string &program)
{
    constexpr int kTries = 500;
    for (int wait = 0; wait < kTries && DeleteFileW(widePath(program).c_str()) == 0; ++wait) Sleep(10);
}

} // namespace inin

#include "system/win32_handle.h"

#include <algorithm>

namespace inin {

namespace {

/// The most bytes that are passed to one system call.
constexpr std::size_t kMaxBytes = std::size_t{1} << 24;

} // namespace

bool writeAll(const Win32FileHandle &file, std::string_view bytes)
{
    for (DWORD written = 0; !bytes.empty(); bytes.remove_prefix(written)) {
        const auto part = static_cast<DWORD>(std::min(bytes.size(), kMaxBytes));
        if (WriteFile(file.get(), bytes.data(), part, &written, nullptr) == 0) return false;
    }
    return true;
}

bool readUpTo(const Win32FileHandle &file, std::size_t size, std::string &bytes)
{
    std::size_t filled = bytes.size();
    const std::size_t goal = filled + size;
    bytes.resize(goal);
    bool isRead = true;
    for (DWORD got = 1; isRead && filled < goal && got > 0; filled += got) {
        const auto part = static_cast<DWORD>(std::min(goal - filled, kMaxBytes));
        isRead = ReadFile(file.get(), bytes.data() + filled, part, &got, nullptr) != 0;
    }
    bytes.resize(filled);
    return isRead;
}

} // namespace inin

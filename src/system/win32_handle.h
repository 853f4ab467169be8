#pragma once

#include "system/windows_names.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace inin {

/// Owns a file handle. INVALID_HANDLE_VALUE counts as not open.
class Win32FileHandle {
public:
    explicit Win32FileHandle(HANDLE handle) : m_handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    [[nodiscard]] bool isOpen() const { return m_handle != nullptr; }
    [[nodiscard]] HANDLE get() const { return m_handle.get(); }
    /// False, with the last error set, if the system reports the failure of an earlier write only now.
    [[nodiscard]] bool close() { return CloseHandle(m_handle.release()) != 0; }

private:
    struct Close {
        void operator()(void *handle) const { CloseHandle(handle); }
    };
    std::unique_ptr<void, Close> m_handle;
};

/// False, with the last error set, on failure.
[[nodiscard]] bool writeAll(const Win32FileHandle &file, std::string_view bytes);
/// Appends `size` bytes; fewer only at the end of the file.
[[nodiscard]] bool readUpTo(const Win32FileHandle &file, std::size_t size, std::string &bytes);

} // namespace inin

#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// The bytes of a file, which is mapped into memory. Empty if it cannot be read. Windows ends a program that reads mapped
/// bytes after their share or medium has disappeared; such a file is copied into memory there.
class MappedFile {
public:
    explicit MappedFile(const std::string &systemPath);
    MappedFile(const MappedFile &) = delete;
    MappedFile &operator=(const MappedFile &) = delete;
    ~MappedFile();

    [[nodiscard]] std::string_view bytes() const { return m_bytes; }

private:
    std::string m_copy; ///< empty for a mapped file
    std::string_view m_bytes;
};

} // namespace inin::viewer

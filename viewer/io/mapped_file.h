#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// The bytes of a file of the system in memory, read as far as they are looked at. Empty for one that cannot be opened.
class MappedFile {
public:
    explicit MappedFile(const std::string &systemPath);
    MappedFile(const MappedFile &) = delete;
    MappedFile &operator=(const MappedFile &) = delete;
    ~MappedFile();

    [[nodiscard]] std::string_view bytes() const { return m_bytes; }

private:
    std::string_view m_bytes;
};

} // namespace inin::viewer

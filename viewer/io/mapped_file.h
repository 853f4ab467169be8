#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// A memory-mapped file. Empty if it cannot be opened.
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

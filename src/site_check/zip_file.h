#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace inin::site {

/// A zip file in memory. The files are stored without compression and without their times; names are UTF-8.
class ZipFile {
public:
    void add(std::string_view name, std::string_view bytes);
    /// The bytes of the whole file.
    [[nodiscard]] std::string finished() const;

private:
    std::string m_files;
    std::string m_directory;
    std::uint16_t m_count = 0;
};

} // namespace inin::site

#include "site_check/zip_file.h"

#include <zlib.h>

#include <initializer_list>

namespace inin::site {

namespace {

// The records of a zip file: the signature, then fields of two or four bytes, the lowest byte first.
constexpr std::uint32_t kLocalFile = 0x04034B50;
constexpr std::uint32_t kDirectoryEntry = 0x02014B50;
constexpr std::uint32_t kDirectoryEnd = 0x06054B50;
constexpr std::uint16_t kVersion = 20;
constexpr std::uint16_t kUtf8Names = 1U << 11;
constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kMidnight = 0;
constexpr std::uint16_t kFirstDay = 1U << 5 | 1U; // 1980-01-01, the earliest date of the format

template <class Number> void append(std::string &out, Number number)
{
    for (std::size_t byte = 0; byte < sizeof number; ++byte)
        out += static_cast<char>(static_cast<unsigned char>(static_cast<std::uint64_t>(number) >> (8 * byte)));
}

void append16(std::string &out, std::initializer_list<std::uint16_t> numbers)
{
    for (const std::uint16_t number : numbers) append(out, number);
}

std::uint32_t checksum(std::string_view bytes)
{
    return static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const Bytef *>(bytes.data()), static_cast<z_size_t>(bytes.size())));
}

/// The fields that a file and its entry in the directory share.
void appendFileFields(std::string &out, std::string_view name, std::string_view bytes)
{
    const auto size = static_cast<std::uint32_t>(bytes.size());
    append16(out, {kVersion, kUtf8Names, kStored, kMidnight, kFirstDay});
    append(out, checksum(bytes));
    append(out, size);
    append(out, size);
    append16(out, {static_cast<std::uint16_t>(name.size()), 0}); // no extra field
}

} // namespace

void ZipFile::add(std::string_view name, std::string_view bytes)
{
    append(m_directory, kDirectoryEntry);
    append16(m_directory, {kVersion});
    appendFileFields(m_directory, name, bytes);
    append16(m_directory, {0, 0, 0}); // no comment, first disk, not known to be a text
    append(m_directory, std::uint32_t{0});
    append(m_directory, static_cast<std::uint32_t>(m_files.size()));
    m_directory += name;

    append(m_files, kLocalFile);
    appendFileFields(m_files, name, bytes);
    m_files += name;
    m_files += bytes;
    ++m_count;
}

std::string ZipFile::finished() const
{
    std::string whole = m_files + m_directory;
    append(whole, kDirectoryEnd);
    append16(whole, {0, 0, m_count, m_count}); // a single disk
    append(whole, static_cast<std::uint32_t>(m_directory.size()));
    append(whole, static_cast<std::uint32_t>(m_files.size()));
    append16(whole, {0}); // no comment
    return whole;
}

} // namespace inin::site

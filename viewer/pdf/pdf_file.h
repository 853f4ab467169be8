#pragma once

#include "system/whole_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// Fast for the many page streams; best for streams that occur once in a file.
enum class Compression { fast, best };

/// Writes the objects of a PDF file immediately and keeps only their offsets.
class PdfFile {
public:
    explicit PdfFile(AtomicFile &out);
    PdfFile(const PdfFile &) = delete;
    PdfFile &operator=(const PdfFile &) = delete;
    ~PdfFile();

    /// Returns the number of an object that will be written later.
    [[nodiscard]] int reserve();
    void writeObject(int number, std::string_view body);
    /// `entries` are added to the stream's dictionary, which has its length and filter.
    void writeStream(int number, std::string_view entries, std::string_view content, Compression compression);
    /// The same for data that is already encoded; `entries` name its filter.
    void writeEncodedStream(int number, std::string_view entries, std::string_view data);
    /// Writes the cross-reference table and the trailer. The owner of `out` commits it.
    void close(int catalog, int info);

private:
    class Deflater;

    void begin(int number);
    void write(std::string_view bytes);

    AtomicFile &m_out;
    std::vector<std::uint64_t> m_offsets;
    std::uint64_t m_written = 0;
    std::unique_ptr<Deflater> m_fast, m_best;
    std::string m_head;
};

} // namespace inin::viewer

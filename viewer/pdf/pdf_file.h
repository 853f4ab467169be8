#pragma once

#include "viewer/io/file_io.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// How hard a stream is pressed: pages are many, what stands once is worth more work.
enum class Press { quickly, well };

/// The objects of a PDF file, written as they come; only their places are kept.
class PdfFile {
public:
    explicit PdfFile(FinishedFile &out);
    PdfFile(const PdfFile &) = delete;
    PdfFile &operator=(const PdfFile &) = delete;
    ~PdfFile();

    /// A number for an object that is written later.
    [[nodiscard]] int reserve();
    void writeObject(int number, std::string_view body);
    /// `entries` stand in the stream's dictionary beside length and filter.
    void writeStream(int number, std::string_view entries, std::string_view content, Press press);
    /// The table of objects and the end of the file; the file itself is finished by its owner.
    void close(int catalog, int info);

private:
    class Deflater;

    void begin(int number);
    void write(std::string_view bytes);

    FinishedFile &m_out;
    std::vector<std::uint64_t> m_places;
    std::uint64_t m_written = 0;
    std::unique_ptr<Deflater> m_quick, m_well;
    std::string m_head;
};

} // namespace inin::viewer

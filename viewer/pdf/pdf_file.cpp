#include "viewer/pdf/pdf_file.h"

#include "runtime/runtime_error.h"

#include <fmt/format.h>
#include <zlib.h>

#include <iterator>

namespace inin::viewer {

/// One compressor for all streams of a level: creating one is slower than compressing a page.
class PdfFile::Deflater {
public:
    explicit Deflater(int level)
    {
        if (deflateInit(&m_stream, level) != Z_OK) throw RuntimeError(error_number::outOfMemory);
    }
    Deflater(const Deflater &) = delete;
    Deflater &operator=(const Deflater &) = delete;
    ~Deflater() { deflateEnd(&m_stream); }

    std::string_view compress(std::string_view content)
    {
        deflateReset(&m_stream);
        m_room.resize(deflateBound(&m_stream, static_cast<uLong>(content.size())));
        // zlib does not modify its input, although the pointer is not const.
        m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(content.data()));
        m_stream.avail_in = static_cast<uInt>(content.size());
        m_stream.next_out = reinterpret_cast<Bytef *>(m_room.data());
        m_stream.avail_out = static_cast<uInt>(m_room.size());
        if (deflate(&m_stream, Z_FINISH) != Z_STREAM_END) throw RuntimeError(error_number::outOfMemory);
        return {m_room.data(), m_room.size() - m_stream.avail_out};
    }

private:
    z_stream m_stream{};
    std::string m_room;
};

PdfFile::PdfFile(AtomicFile &out)
    : m_out(out), m_fast(std::make_unique<Deflater>(Z_BEST_SPEED)),
      m_best(std::make_unique<Deflater>(Z_BEST_COMPRESSION))
{
    // The comment of bytes above 127 marks the file as binary.
    write("%PDF-1.5\n%\xE2\xE3\xCF\xD3\n");
}

PdfFile::~PdfFile() = default;

int PdfFile::reserve()
{
    m_offsets.push_back(0);
    return static_cast<int>(m_offsets.size());
}

void PdfFile::write(std::string_view bytes)
{
    m_out.write(bytes);
    m_written += bytes.size();
}

void PdfFile::begin(int number)
{
    m_offsets[static_cast<std::size_t>(number - 1)] = m_written;
    m_head.clear();
    fmt::format_to(std::back_inserter(m_head), "{} 0 obj\n", number);
}

void PdfFile::writeObject(int number, std::string_view body)
{
    begin(number);
    m_head += body;
    m_head += "\nendobj\n";
    write(m_head);
}

void PdfFile::writeStream(int number, std::string_view entries, std::string_view content, Compression compression)
{
    const std::string_view data = (compression == Compression::fast ? *m_fast : *m_best).compress(content);
    writeEncodedStream(number, std::string(entries) + "/Filter/FlateDecode", data);
}

void PdfFile::writeEncodedStream(int number, std::string_view entries, std::string_view data)
{
    begin(number);
    fmt::format_to(std::back_inserter(m_head), "<<{}/Length {}>>stream\n", entries, data.size());
    write(m_head);
    write(data);
    write("\nendstream\nendobj\n");
}

void PdfFile::close(int catalog, int info)
{
    const std::uint64_t table = m_written;
    std::string lines = fmt::format("xref\n0 {}\n0000000000 65535 f \n", m_offsets.size() + 1);
    for (const std::uint64_t offset : m_offsets) fmt::format_to(std::back_inserter(lines), "{:010} 00000 n \n", offset);
    fmt::format_to(std::back_inserter(lines), "trailer\n<</Size {}/Root {} 0 R/Info {} 0 R>>\nstartxref\n{}\n%%EOF\n",
                   m_offsets.size() + 1, catalog, info, table);
    write(lines);
}

} // namespace inin::viewer

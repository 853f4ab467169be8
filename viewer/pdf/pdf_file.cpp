#include "viewer/pdf/pdf_file.h"

#include "runtime/runtime_error.h"
#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>
#include <zlib.h>

#include <iterator>

namespace inin::viewer {

namespace {

/// A reader must expand a whole stream for one of its objects.
constexpr int kPackedObjects = 400;
/// The pages' contents are short: small tables are quicker to reset for each of them.
constexpr int kSmallWindow = 13, kSmallMemory = 6, kSmallLevel = 6;
/// The widths of the columns of a cross-reference stream: kind, place, index.
constexpr int kKindBytes = 1, kPlaceBytes = 5, kIndexBytes = 2, kRowBytes = kKindBytes + kPlaceBytes + kIndexBytes;

/// Rows as their differences from the previous ones: PNG's filter "up", which a PDF calls predictor 12.
std::string differences(std::string_view rows, std::size_t width)
{
    constexpr char kUp = 2;
    std::string out(rows.size() + rows.size() / width, kUp);
    std::string_view above;
    std::size_t to = 0;
    for (std::size_t begin = 0; begin < rows.size(); begin += width) {
        const std::string_view row = rows.substr(begin, width);
        ++to; // the kind of difference
        for (std::size_t i = 0; i < width; ++i, ++to)
            out[to] = static_cast<char>(above.empty() ? row[i] : row[i] - above[i]);
        above = row;
    }
    return out;
}

std::string predictorEntry(std::size_t width)
{
    return fmt::format("/DecodeParms<</Predictor 12/Columns {}>>", width);
}

} // namespace

/// One compressor for all streams of a level: creating one is slower than compressing a page.
class PdfFile::Deflater {
public:
    explicit Deflater(int level, int window = MAX_WBITS, int memory = MAX_MEM_LEVEL - 1)
    {
        if (deflateInit2(&m_stream, level, Z_DEFLATED, window, memory, Z_DEFAULT_STRATEGY) != Z_OK)
            throw RuntimeError(error_number::outOfMemory);
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
    : m_out(out), m_fast(std::make_unique<Deflater>(Z_BEST_SPEED, kSmallWindow, kSmallMemory)),
      m_small(std::make_unique<Deflater>(kSmallLevel, kSmallWindow, kSmallMemory)),
      m_best(std::make_unique<Deflater>(Z_BEST_COMPRESSION))
{
    // The comment of bytes above 127 marks the file as binary.
    write("%PDF-1.7\n%\xE2\xE3\xCF\xD3\n");
}

PdfFile::~PdfFile() = default;

int PdfFile::reserve()
{
    m_places.emplace_back();
    return static_cast<int>(m_places.size());
}

void PdfFile::write(std::string_view bytes)
{
    const auto *const data = reinterpret_cast<const Bytef *>(bytes.data());
    m_checksum = static_cast<std::uint32_t>(crc32_z(m_checksum, data, bytes.size()));
    m_otherChecksum = static_cast<std::uint32_t>(adler32_z(m_otherChecksum, data, bytes.size()));
    m_out.write(bytes);
    m_written += bytes.size();
}

void PdfFile::begin(int number)
{
    m_places[static_cast<std::size_t>(number - 1)] = {m_written, 0};
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
    Deflater &deflater = compression == Compression::fast    ? *m_fast
                         : compression == Compression::small ? *m_small
                                                             : *m_best;
    writeEncodedStream(number, std::string(entries) + "/Filter/FlateDecode", deflater.compress(content));
}

void PdfFile::writeEncodedStream(int number, std::string_view entries, std::string_view data)
{
    begin(number);
    fmt::format_to(std::back_inserter(m_head), "<<{}/Length {}>>stream\n", entries, data.size());
    write(m_head);
    write(data);
    write("\nendstream\nendobj\n");
}

void PdfFile::placeInStream(int number, int stream, int index)
{
    m_places[static_cast<std::size_t>(number - 1)] = {static_cast<std::uint64_t>(index), stream};
}

void PackedObjects::fillRow(std::string &text) const
{
    if (m_width != kNoRows) text.resize((text.size() + m_width - 1) / m_width * m_width, ' ');
}

void PackedObjects::add(int number, std::string_view body)
{
    if (m_count == 0) m_stream = m_file.reserve();
    m_file.placeInStream(number, m_stream, m_count);
    fmt::format_to(std::back_inserter(m_places), "{:7} {:6} ", number, m_bodies.size());
    fillRow(m_places);
    m_bodies += body;
    m_bodies += ' ';
    fillRow(m_bodies);
    if (++m_count == kPackedObjects) flush();
}

void PackedObjects::flush()
{
    if (m_count == 0) return;
    std::string entries = fmt::format("/Type/ObjStm/N {}/First {}", m_count, m_places.size());
    std::string content = m_places + m_bodies;
    if (m_width != kNoRows) {
        entries += predictorEntry(m_width);
        content = differences(content, m_width);
    }
    m_file.writeStream(m_stream, entries, content, Compression::small);
    m_places.clear();
    m_bodies.clear();
    m_count = 0;
}

/// The rows of the cross-reference stream.
std::string PdfFile::placesTable() const
{
    constexpr std::uint64_t kFree = 0, kInFile = 1, kInStream = 2;
    std::string table;
    const auto add = [&](std::uint64_t kind, std::uint64_t place, std::uint64_t index) {
        appendBigEndian(table, kind, kKindBytes);
        appendBigEndian(table, place, kPlaceBytes);
        appendBigEndian(table, index, kIndexBytes);
    };
    add(kFree, 0, 0xFFFF);
    for (const Place &place : m_places) {
        if (place.stream == 0)
            add(kInFile, place.at, 0);
        else
            add(kInStream, static_cast<std::uint64_t>(place.stream), place.at);
    }
    return table;
}

/// The same bytes have the same identifier.
std::string PdfFile::fileId() const
{
    return fmt::format("<{:08X}{:08X}{:016X}>", m_checksum, m_otherChecksum, m_written);
}

void PdfFile::close(int catalog, int info)
{
    m_packed.flush();
    const int number = reserve();
    const std::uint64_t at = m_written;
    m_places.back() = {at, 0};
    writeStream(number,
                fmt::format("/Type/XRef/Size {0}/W[{1} {2} {3}]/Root {4} 0 R/Info {5} 0 R/ID[{6}{6}]{7}",
                            m_places.size() + 1, kKindBytes, kPlaceBytes, kIndexBytes, catalog, info, fileId(),
                            predictorEntry(kRowBytes)),
                differences(placesTable(), kRowBytes), Compression::small);
    write(fmt::format("startxref\n{}\n%%EOF\n", at));
}

} // namespace inin::viewer

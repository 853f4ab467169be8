#include "viewer/pdf/pdf_file.h"

#include "runtime/runtime_error.h"
#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>
#include <libdeflate.h>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

/// A reader must expand a whole stream for one of its objects.
constexpr std::size_t kPackedObjects = 400;
constexpr int kFastLevel = 1, kSmallLevel = 6, kBestLevel = 9;
/// The largest number of objects that readers accept (ISO 32000-1, annex C).
constexpr std::size_t kMostObjects = 8'388'607;
/// The widths of the columns of a cross-reference stream: kind, place, index.
constexpr int kKindBytes = 1, kPlaceBytes = 5, kIndexBytes = 2, kRowBytes = kKindBytes + kPlaceBytes + kIndexBytes;

/// A row of the cross-reference stream.
constexpr std::uint64_t placeRow(std::uint64_t kind, std::uint64_t place, std::uint64_t index)
{
    return kind << 8 * (kPlaceBytes + kIndexBytes) | place << 8 * kIndexBytes | index;
}
constexpr std::uint64_t kInFile = 1, kInStream = 2;
/// A number that is never used again.
constexpr std::uint64_t kFree = placeRow(0, 0, 0xFFFF);

/// Appends rows, the first one unchanged and the others as their differences from the previous ones: PNG's filters "none"
/// and "up", which a PDF calls predictor 12.
void appendDifferences(std::string &out, std::string_view rows, std::size_t width)
{
    constexpr char kNone = 0, kUp = 2;
    std::size_t to = out.size();
    out.resize(to + rows.size() + rows.size() / width);
    for (std::size_t begin = 0; begin < rows.size(); begin += width) {
        const char *const row = rows.data() + begin;
        out[to++] = begin == 0 ? kNone : kUp;
        char *const difference = out.data() + to;
        if (begin == 0)
            std::copy_n(row, width, difference);
        else
            std::transform(row, row + width, row - width, difference,
                           [](char present, char above) { return static_cast<char>(present - above); });
        to += width;
    }
}

std::string predictorEntry(std::size_t width)
{
    return fmt::format("/DecodeParms<</Predictor 12/Columns {}>>", width);
}

} // namespace

/// One compressor for all streams of a level.
class PdfFile::Deflater {
public:
    explicit Deflater(int level) : m_compressor(libdeflate_alloc_compressor(level))
    {
        if (!m_compressor) throw RuntimeError(error_number::outOfMemory);
    }

    /// The view is valid until the next call.
    std::string_view compress(std::string_view content)
    {
        const std::size_t most = libdeflate_zlib_compress_bound(m_compressor.get(), content.size());
        if (m_room.size() < most) m_room.resize(most);
        return {m_room.data(), libdeflate_zlib_compress(m_compressor.get(), content.data(), content.size(),
                                                        m_room.data(), m_room.size())};
    }

private:
    struct Deleter {
        void operator()(libdeflate_compressor *compressor) const { libdeflate_free_compressor(compressor); }
    };
    std::unique_ptr<libdeflate_compressor, Deleter> m_compressor;
    std::string m_room;
};

PdfFile::PdfFile(AtomicFile &out)
    : m_out(out), m_fast(std::make_unique<Deflater>(kFastLevel)), m_small(std::make_unique<Deflater>(kSmallLevel)),
      m_best(std::make_unique<Deflater>(kBestLevel))
{
    // The comment of bytes above 127 marks the file as binary.
    write("%PDF-1.7\n%\xE2\xE3\xCF\xD3\n");
}

PdfFile::~PdfFile() = default;

int PdfFile::reserve()
{
    if (m_places.size() >= kMostObjects)
        throw RuntimeError(error_number::overflow, "一つの PDF に書ける委任状の数を超えました。");
    m_places.push_back(kFree);
    return static_cast<int>(m_places.size());
}

void PdfFile::skipToMultipleOf(std::size_t unit)
{
    m_places.resize((m_places.size() + unit) / unit * unit - 1, kFree);
}

void PdfFile::write(std::string_view bytes)
{
    m_checksum = libdeflate_crc32(m_checksum, bytes.data(), bytes.size());
    m_otherChecksum = libdeflate_adler32(m_otherChecksum, bytes.data(), bytes.size());
    m_out.write(bytes);
    m_written += bytes.size();
}

void PdfFile::begin(int number)
{
    m_places[static_cast<std::size_t>(number - 1)] = placeRow(kInFile, m_written, 0);
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

void PdfFile::placeInStream(int number, int stream, std::size_t index)
{
    if (index >= std::size_t{1} << 8 * kIndexBytes)
        throw RuntimeError(error_number::overflow, "一通の委任状の行が多すぎるため、タグ付きの PDF にできません。");
    m_places[static_cast<std::size_t>(number - 1)] = placeRow(kInStream, static_cast<std::uint64_t>(stream), index);
}

void PdfFile::writeObjectStream(int number, const ObjectStream &objects)
{
    std::string entries = fmt::format("/Type/ObjStm/N {}/First {}", objects.count, objects.places.size());
    std::string content;
    if (objects.rowWidth == 0) {
        content = objects.places;
        content += objects.bodies;
        return writeStream(number, entries, content, Compression::small);
    }
    appendDifferences(content, objects.places, objects.rowWidth);
    appendDifferences(content, objects.bodies, objects.rowWidth);
    writeStream(number, entries + predictorEntry(objects.rowWidth), content, Compression::fast);
}

void ObjectStream::addPlace(std::size_t number, std::size_t offset)
{
    ++count;
    appendPadded(places, number, kNumberDigits);
    places += ' ';
    appendPadded(places, offset, kOffsetDigits);
    places += ' ';
}

void ObjectStream::clear()
{
    count = 0;
    places.clear();
    bodies.clear();
}

void PackedObjects::fillRow(std::string &text) const
{
    const std::size_t width = m_objects.rowWidth;
    if (width != 0) text.resize((text.size() + width - 1) / width * width, ' ');
}

void PackedObjects::add(int number, std::string_view body)
{
    if (m_objects.count == 0) m_stream = m_file.reserve();
    m_file.placeInStream(number, m_stream, m_objects.count);
    m_objects.addPlace(static_cast<std::size_t>(number), m_objects.bodies.size());
    fillRow(m_objects.places);
    m_objects.bodies += body;
    m_objects.bodies += ' ';
    fillRow(m_objects.bodies);
    if (m_objects.count == kPackedObjects) flush();
}

void PackedObjects::flush()
{
    if (m_objects.count == 0) return;
    m_file.writeObjectStream(m_stream, m_objects);
    m_objects.clear();
}

std::string PdfFile::placesTable() const
{
    std::string table;
    table.reserve((m_places.size() + 1) * kRowBytes);
    appendBigEndian(table, kFree, kRowBytes);
    for (const std::uint64_t place : m_places) appendBigEndian(table, place, kRowBytes);
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
    m_places.back() = placeRow(kInFile, at, 0);
    std::string rows;
    appendDifferences(rows, placesTable(), kRowBytes);
    writeStream(number,
                fmt::format("/Type/XRef/Size {0}/W[{1} {2} {3}]/Root {4} 0 R/Info {5} 0 R/ID[{6}{6}]{7}",
                            m_places.size() + 1, kKindBytes, kPlaceBytes, kIndexBytes, catalog, info, fileId(),
                            predictorEntry(kRowBytes)),
                rows, Compression::small);
    write(fmt::format("startxref\n{}\n%%EOF\n", at));
}

} // namespace inin::viewer

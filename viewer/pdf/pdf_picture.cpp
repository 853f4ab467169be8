#include "viewer/pdf/pdf_picture.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

std::string imageEntries(const Picture &picture, std::string_view colors)
{
    return fmt::format("/Type/XObject/Subtype/Image/Width {}/Height {}/ColorSpace/{}/BitsPerComponent 8", picture.width,
                       picture.height, colors);
}

} // namespace

std::size_t PdfPictures::numberOf(const Picture &picture)
{
    const auto found = std::ranges::find(m_pictures, &picture, &Written::picture);
    if (found != m_pictures.end()) return static_cast<std::size_t>(found - m_pictures.begin());
    m_pictures.push_back({&picture, write(picture)});
    return m_pictures.size() - 1;
}

int PdfPictures::writeAlpha(const Picture &picture)
{
    const int object = m_file.reserve();
    m_file.writeStream(object, imageEntries(picture, "DeviceGray"), picture.alpha, Compression::best);
    return object;
}

int PdfPictures::write(const Picture &picture)
{
    std::string entries = imageEntries(picture, picture.channels == 1 ? "DeviceGray" : "DeviceRGB");
    if (!picture.alpha.empty()) fmt::format_to(std::back_inserter(entries), "/SMask {} 0 R", writeAlpha(picture));
    const int object = m_file.reserve();
    if (picture.jpeg.empty())
        m_file.writeStream(object, entries, picture.pixels, Compression::best);
    else
        m_file.writeEncodedStream(object, entries + "/Filter/DCTDecode", picture.jpeg);
    return object;
}

std::string PdfPictures::resources() const
{
    std::string entries;
    for (std::size_t i = 0; i < m_pictures.size(); ++i)
        fmt::format_to(std::back_inserter(entries), "/I{} {} 0 R", i, m_pictures[i].object);
    return entries;
}

} // namespace inin::viewer

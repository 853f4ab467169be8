#include "viewer/form/picture.h"

#include "runtime/runtime_error.h"

#include <fmt/format.h>
#include <png.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdint>
#include <cstdio>

#include <jpeglib.h>

namespace inin::viewer {

namespace {

constexpr std::string_view kPngHead = "\x89PNG\r\n\x1A\n";
constexpr std::string_view kJpegHead = "\xFF\xD8\xFF";
/// A small file of many scans would decode for minutes.
constexpr int kMostScans = 100;

[[noreturn]] void refusePicture(std::string sentence)
{
    throw RuntimeError(error_number::invalidPicture, std::move(sentence));
}

[[noreturn]] void refuseDamaged()
{
    refusePicture("途中で切れているか、壊れています。");
}

void checkSize(std::size_t width, std::size_t height, std::size_t mostPixels)
{
    constexpr std::size_t kTenThousand = 10'000;
    if (width == 0 || height == 0) refuseDamaged();
    if (width > mostPixels / height)
        refusePicture(fmt::format("大きすぎます（{}×{}画素）。画像は、一つの帳票の中で合わせて{}万画素まで使えます。",
                                  width, height, mostPixels / kTenThousand));
}

/// True if a chunk of this type precedes the pixels of a PNG file.
bool hasChunk(std::string_view png, std::string_view type)
{
    constexpr std::size_t kLength = 4, kFrame = 12; // length, type and checksum
    std::string_view rest = png.substr(kPngHead.size());
    while (rest.size() >= kFrame) {
        const std::string_view name = rest.substr(kLength, kLength);
        if (name == type) return true;
        if (name == "IDAT") return false;
        std::size_t size = 0;
        for (std::size_t i = 0; i < kLength; ++i) size = size << 8U | static_cast<unsigned char>(rest[i]);
        if (size > rest.size() - kFrame) return false;
        rest.remove_prefix(kFrame + size);
    }
    return false;
}

/// Moves the last channel into an alpha channel of its own, unless it is opaque everywhere.
void splitAlpha(Picture &picture)
{
    const std::size_t count = picture.width * picture.height, stride = picture.channels + 1;
    picture.alpha.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        const char *const from = picture.pixels.data() + i * stride;
        std::copy_n(from, picture.channels, picture.pixels.data() + i * picture.channels);
        picture.alpha[i] = from[picture.channels];
    }
    picture.pixels.resize(count * picture.channels);
    if (std::ranges::all_of(picture.alpha, [](char part) { return part == '\xFF'; })) picture.alpha.clear();
}

/// Frees what libpng allocated.
struct PngImage : png_image {
    PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
    PngImage(const PngImage &) = delete;
    PngImage &operator=(const PngImage &) = delete;
    ~PngImage() { png_image_free(this); }
};

Picture decodePng(std::string_view bytes, std::size_t mostPixels)
{
    PngImage image;
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0) refuseDamaged();
    checkSize(image.width, image.height, mostPixels);
    const bool hasAlpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    image.format &= PNG_FORMAT_FLAG_COLOR | PNG_FORMAT_FLAG_ALPHA;
    Picture picture;
    picture.width = image.width;
    picture.height = image.height;
    picture.channels = (image.format & PNG_FORMAT_FLAG_COLOR) != 0 ? 3 : 1;
    picture.pixels.resize(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr) == 0) refuseDamaged();
    if (hasAlpha) splitAlpha(picture);
    picture.isAnimated = hasChunk(bytes, "acTL");
    return picture;
}

/// A JPEG decoder. libjpeg reports errors by jumping; between setjmp and the jump there are no C++ objects to destroy.
class JpegReader {
public:
    explicit JpegReader(std::string_view bytes)
    {
        m_jpeg.err = jpeg_std_error(&m_errors.base);
        m_errors.base.error_exit = [](j_common_ptr jpeg) {
            std::longjmp(reinterpret_cast<Errors *>(jpeg->err)->failed, 1);
        };
        m_errors.base.output_message = [](j_common_ptr) {};
        m_progress.progress_monitor = [](j_common_ptr jpeg) {
            if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > kMostScans) jpeg->err->error_exit(jpeg);
        };
        if (setjmp(m_errors.failed) == 0) {
            jpeg_create_decompress(&m_jpeg);
            m_jpeg.progress = &m_progress;
            jpeg_mem_src(&m_jpeg, reinterpret_cast<const unsigned char *>(bytes.data()),
                         static_cast<unsigned long>(bytes.size()));
            m_isGood = jpeg_read_header(&m_jpeg, TRUE) == JPEG_HEADER_OK;
        }
    }
    JpegReader(const JpegReader &) = delete;
    JpegReader &operator=(const JpegReader &) = delete;
    ~JpegReader() { jpeg_destroy_decompress(&m_jpeg); }

    [[nodiscard]] bool isGood() const { return m_isGood && m_errors.base.num_warnings == 0; }
    [[nodiscard]] std::size_t width() const { return m_jpeg.image_width; }
    [[nodiscard]] std::size_t height() const { return m_jpeg.image_height; }
    [[nodiscard]] std::size_t channels() const { return static_cast<std::size_t>(m_jpeg.num_components); }
    /// False for colours that a reader of a PDF might take for others.
    [[nodiscard]] bool hasUsualColors() const
    {
        return m_jpeg.jpeg_color_space == JCS_YCbCr || m_jpeg.jpeg_color_space == JCS_GRAYSCALE;
    }

    /// Decodes into the rows at `pixels`.
    void decode(unsigned char *pixels)
    {
        m_isGood = false;
        if (setjmp(m_errors.failed) != 0) return;
        jpeg_start_decompress(&m_jpeg);
        const std::size_t stride = width() * channels();
        while (m_jpeg.output_scanline < m_jpeg.output_height) {
            unsigned char *row = pixels + m_jpeg.output_scanline * stride;
            jpeg_read_scanlines(&m_jpeg, &row, 1);
        }
        jpeg_finish_decompress(&m_jpeg);
        m_isGood = true;
    }

private:
    struct Errors {
        jpeg_error_mgr base; // first, because libjpeg knows only this part
        std::jmp_buf failed;
    };
    Errors m_errors{};
    jpeg_progress_mgr m_progress{};
    jpeg_decompress_struct m_jpeg{};
    bool m_isGood = false;
};

Picture decodeJpeg(std::string_view bytes, std::size_t mostPixels)
{
    JpegReader reader(bytes);
    if (!reader.isGood()) refuseDamaged();
    if (reader.channels() == 4) refusePicture("CMYK の JPEG は使えません。RGB で保存し直してください。");
    if (reader.channels() != 1 && reader.channels() != 3) refuseDamaged();
    checkSize(reader.width(), reader.height(), mostPixels);
    Picture picture;
    picture.width = reader.width();
    picture.height = reader.height();
    picture.channels = reader.channels();
    picture.pixels.resize(picture.width * picture.height * picture.channels);
    if (reader.hasUsualColors()) picture.jpeg = bytes;
    reader.decode(reinterpret_cast<unsigned char *>(picture.pixels.data()));
    if (!reader.isGood()) refuseDamaged();
    return picture;
}

} // namespace

Picture decodePicture(std::string_view bytes, std::size_t mostPixels)
{
    if (bytes.starts_with(kPngHead)) return decodePng(bytes, mostPixels);
    if (bytes.starts_with(kJpegHead)) return decodeJpeg(bytes, mostPixels);
    refusePicture("PNG か JPEG の画像ではありません。");
}

void fade(Picture &picture, double opacity)
{
    if (picture.alpha.empty()) picture.alpha.assign(picture.width * picture.height, '\xFF');
    for (char &part : picture.alpha) part = static_cast<char>(std::lround(static_cast<unsigned char>(part) * opacity));
}

} // namespace inin::viewer

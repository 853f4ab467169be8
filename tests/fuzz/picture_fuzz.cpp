// Pictures in form documents: PNG and JPEG files.

#include "fuzz/fuzz_input.h"
#include "viewer/form/picture.h"

using namespace inin;
using namespace inin::viewer;
using inin::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t kMostPixels = 100'000;
    const std::string_view input(static_cast<const char *>(static_cast<const void *>(data)), size);
    try {
        Picture picture = decodePicture(input, kMostPixels);
        const std::size_t pixels = picture.width * picture.height;
        require(pixels > 0 && pixels <= kMostPixels, "a picture has pixels, and not too many");
        require(picture.channels == 1 || picture.channels == 3, "a picture is gray or has three colors");
        require(picture.pixels.size() == pixels * picture.channels, "a picture has all its pixels");
        require(picture.alpha.empty() || picture.alpha.size() == pixels, "each pixel has its transparency, or none");
        require(picture.jpeg.size() <= input.size(), "what a PDF contains unchanged is the file");
        fade(picture, 0.5);
        require(picture.alpha.size() == pixels, "a faded picture is transparent");
    } catch (const RuntimeError &) {
        return 0; // not a picture, a damaged one, or too large
    }
    return 0;
}

#include "common/picture.h"

#include "runtime/runtime_error.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace inin {

namespace {

using namespace std::string_view_literals;

enum class PictureKind { bitmap, icon, gif, jpeg, png, metafile };

/// The bytes that identify a picture format, and their offset in the file.
struct Signature {
    PictureKind kind;
    std::size_t at;
    std::string_view bytes;
};

/// An icon may be a cursor. There are three kinds of metafile: placeable, plain and enhanced; the signature of the
/// enhanced one is inside its header.
constexpr Signature kSignatures[] = {
    {PictureKind::bitmap, 0, "BM"sv},
    {PictureKind::icon, 0, "\0\0\1\0"sv},
    {PictureKind::icon, 0, "\0\0\2\0"sv},
    {PictureKind::gif, 0, "GIF87a"sv},
    {PictureKind::gif, 0, "GIF89a"sv},
    {PictureKind::jpeg, 0, "\xFF\xD8\xFF"sv},
    {PictureKind::png, 0, "\x89PNG\r\n\x1A\n"sv},
    {PictureKind::metafile, 0, "\xD7\xCD\xC6\x9A"sv},
    {PictureKind::metafile, 0, "\1\0\x09\0"sv},
    {PictureKind::metafile, 40, " EMF"sv},
};
constexpr std::size_t kHeaderSize = 44;

struct PictureHeader {
    PictureKind kind;
    std::string bytes; ///< at most kHeaderSize bytes, fewer in a short file
};

PictureHeader headerOf(Files &files, const std::string &path)
{
    std::string bytes = files.openForInput(path)->read(kHeaderSize);
    const auto *known = std::ranges::find_if(kSignatures, [&](const Signature &signature) {
        return bytes.find(signature.bytes, signature.at) == signature.at;
    });
    if (known == std::end(kSignatures)) throw RuntimeError(error_number::invalidPicture);
    return {known->kind, std::move(bytes)};
}

/// True if the size of the second header, which identifies the version of the format, is a valid one.
bool isBitmapHeader(std::string_view header)
{
    constexpr std::size_t kSizeAt = 14;
    constexpr std::string_view kSizes[] = {"\x0C\0\0\0"sv, "\x28\0\0\0"sv, "\x40\0\0\0"sv, "\x6C\0\0\0"sv,
                                           "\x7C\0\0\0"sv};
    return std::ranges::any_of(kSizes, [&](std::string_view size) { return header.find(size, kSizeAt) == kSizeAt; });
}

} // namespace

void checkPictureFile(Files &files, const std::string &path)
{
    static_cast<void>(headerOf(files, path));
}

bool canBePainted(Files &files, const std::string &path)
{
    // Size in bytes of the headers that every file of the format begins with.
    constexpr std::size_t kIconHeaders = 22, kGifHeaders = 13, kJpegHeaders = 4, kPngHeaders = 33;
    const auto [kind, bytes] = headerOf(files, path);
    switch (kind) {
    case PictureKind::bitmap:
        return isBitmapHeader(bytes);
    case PictureKind::icon:
        return bytes.size() >= kIconHeaders;
    case PictureKind::gif:
        return bytes.size() >= kGifHeaders;
    case PictureKind::jpeg:
        return bytes.size() >= kJpegHeaders;
    case PictureKind::png:
        return bytes.size() >= kPngHeaders;
    case PictureKind::metafile:
        break;
    }
    return false;
}

} // namespace inin

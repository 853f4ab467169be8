#include "common/picture.h"

#include "runtime/runtime_error.h"

#include <algorithm>
#include <string_view>

namespace inin {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::size_t at;
    std::string_view bytes;
};

/// First bytes of a bitmap, an icon, a cursor, both kinds of GIF, JPEG, PNG, and of the three kinds of metafile: the
/// placeable, the bare and the enhanced one (which bears its mark inside its header).
constexpr Signature kSignatures[] = {
    {0, "BM"sv},           {0, "\0\0\1\0"sv},          {0, "\0\0\2\0"sv},         {0, "GIF87a"sv},     {0, "GIF89a"sv},
    {0, "\xFF\xD8\xFF"sv}, {0, "\x89PNG\r\n\x1A\n"sv}, {0, "\xD7\xCD\xC6\x9A"sv}, {0, "\1\0\x09\0"sv}, {40, " EMF"sv},
};
constexpr std::size_t kHeaderSize = 44;

} // namespace

void checkPictureFile(Files &files, const std::string &path)
{
    const std::string header = files.openForInput(path)->read(kHeaderSize);
    const bool known = std::ranges::any_of(kSignatures, [&](const Signature &signature) {
        return header.size() > signature.at &&
               std::string_view(header).substr(signature.at).starts_with(signature.bytes);
    });
    if (!known) throw RuntimeError(error_number::invalidPicture);
}

} // namespace inin

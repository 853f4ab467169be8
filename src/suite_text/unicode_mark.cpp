#include "suite_text/unicode_mark.h"

#include "runtime/utf8.h"
#include "suite_text/code_page_932.h"

#include <cstddef>

namespace inin {

namespace {

enum class Encoding { utf8, utf16Little, utf16Big };

struct Mark {
    Encoding encoding;
    std::string_view bytes;
};
constexpr Mark kMarks[] = {
    {Encoding::utf8, "\xEF\xBB\xBF"}, {Encoding::utf16Little, "\xFF\xFE"}, {Encoding::utf16Big, "\xFE\xFF"}};

const Mark *markOf(std::string_view bytes)
{
    for (const Mark &mark : kMarks)
        if (bytes.starts_with(mark.bytes)) return &mark;
    return nullptr;
}

char16_t unitAt(std::string_view utf16, std::size_t at, Encoding encoding)
{
    const auto first = static_cast<unsigned char>(utf16[at]), second = static_cast<unsigned char>(utf16[at + 1]);
    return static_cast<char16_t>(encoding == Encoding::utf16Big ? first << 8 | second : second << 8 | first);
}

/// The marked text in UTF-8. An odd last byte becomes U+FFFD, because it must not be dropped silently.
std::string utf8Text(std::string_view bytes, const Mark &mark)
{
    bytes.remove_prefix(mark.bytes.size());
    if (mark.encoding == Encoding::utf8) return std::string(bytes);
    std::u16string units;
    for (std::size_t at = 0; at < bytes.size(); at += 2)
        units += at + 1 < bytes.size() ? unitAt(bytes, at, mark.encoding) : char16_t{kReplacementCharacter};
    return utf8FromUtf16(units);
}

std::string utf16Text(std::string_view codePage, Encoding encoding)
{
    std::string out;
    for (std::size_t at = 0; at < codePage.size(); ++at) {
        const auto byte = static_cast<unsigned char>(codePage[at]);
        const bool two = isCp932Lead(byte) && at + 1 < codePage.size();
        const char16_t unit = two ? cp932Unit(byte, static_cast<unsigned char>(codePage[++at])) : cp932Unit(byte);
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        if (encoding == Encoding::utf16Big)
            out += {high, low};
        else
            out += {low, high};
    }
    return out;
}

} // namespace

std::optional<std::string> unmarked(std::string_view bytes)
{
    const Mark *mark = markOf(bytes);
    if (!mark) return std::nullopt;
    return encodeCp932(utf8Text(bytes, *mark));
}

std::optional<std::string> markedLike(std::string_view before, std::string_view codePage)
{
    const Mark *mark = markOf(before);
    if (!mark) return std::nullopt;
    const std::string old = utf8Text(before, *mark);
    if (decodeCp932(encodeCp932(old)) != old) return std::nullopt;
    return std::string(mark->bytes) +
           (mark->encoding == Encoding::utf8 ? decodeCp932(codePage) : utf16Text(codePage, mark->encoding));
}

} // namespace inin

#include "suite_text/code_page_932.h"

#include "runtime/utf8.h"
#include "suite_text/code_page_table.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace inin {

namespace {

constexpr bool isTrail(unsigned char byte)
{
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

/// A character may have up to three codes. Written is the one of JIS X 0208, else of row 13, else of the vendor's
/// extension after the user-defined area; the duplicates in rows 0xED and 0xEE are only read.
constexpr int preference(unsigned lead)
{
    if (lead == 0xED || lead == 0xEE) return 1;
    if (lead >= 0xFA) return 2;
    return lead == 0x87 ? 3 : 4;
}

constexpr unsigned pairOf(unsigned char lead, unsigned char trail)
{
    return static_cast<unsigned>(lead << 8 | trail);
}

struct Twin {
    char16_t twin;
    char16_t own;
};
constexpr Twin kTwins[] = {{0x2014, 0x2015}, {0x2016, 0x2225}, {0x2212, 0xFF0D}, {0x301C, 0xFF5E}};

struct Tables {
    std::array<char16_t, 0x100> single{};      ///< 0: not a single-byte character
    std::array<char16_t, 0x10000> pair{};      ///< indexed by lead and trail byte
    std::array<std::uint16_t, 0x10000> code{}; ///< indexed by UTF-16 unit; 0: not in the code page

    Tables()
    {
        std::string singles, pairs;
        for (unsigned byte = 0x01; byte <= 0xFC; ++byte) {
            // Systems differ on 0x80, 0xA0 and 0xFD to 0xFF: here they are not characters.
            if (isCp932Lead(static_cast<unsigned char>(byte)))
                addTrails(pairs, static_cast<char>(byte));
            else if (byte != 0x80 && byte != 0xA0)
                singles += static_cast<char>(byte);
        }
        addAll(singles, 1);
        addAll(pairs, 2);
        for (const Twin &twin : kTwins)
            if (code[twin.twin] == 0) code[twin.twin] = code[twin.own];
    }

private:
    static void addTrails(std::string &pairs, char lead)
    {
        for (unsigned trail = 0x40; trail <= 0xFC; ++trail)
            if (isTrail(static_cast<unsigned char>(trail))) pairs += {lead, static_cast<char>(trail)};
    }
    void addAll(const std::string &bytes, std::size_t width)
    {
        const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
        for (std::size_t at = 0; const char16_t unit : systemUnits(bytes, width)) {
            if (width == 1)
                add(unit, byteAt(at), single[byteAt(at)]);
            else
                add(unit, pairOf(byteAt(at), byteAt(at + 1)), pair[pairOf(byteAt(at), byteAt(at + 1))]);
            at += width;
        }
    }
    void add(char16_t unit, unsigned bytes, char16_t &place)
    {
        place = unit;
        if (unit == 0) return;
        std::uint16_t &old = code[unit];
        if (old == 0 || preference(bytes >> 8) > preference(old >> 8U)) old = static_cast<std::uint16_t>(bytes);
    }
};

const Tables &tables()
{
    static const auto built = std::make_unique<const Tables>();
    return *built;
}

/// Appends the leading ASCII run of `text` and returns its length: most bytes of a statement or path are ASCII.
std::size_t takeAscii(std::string &out, std::string_view text)
{
    std::size_t size = 0;
    while (size < text.size() && isAscii(text[size])) ++size;
    out.append(text.data(), size);
    return size;
}

} // namespace

bool isCp932Lead(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

char16_t cp932Unit(unsigned char lead, unsigned char trail)
{
    return tables().pair[pairOf(lead, trail)];
}

char16_t cp932Unit(unsigned char byte)
{
    return tables().single[byte];
}

std::string encodeCp932(std::string_view utf8)
{
    const Tables &table = tables();
    // No character is longer here than in UTF-8.
    std::string out(utf8.size(), '\0');
    char *end = out.data();
    for (std::size_t at = 0; at < utf8.size();) {
        const DecodedCharacter next = firstCharacter(utf8.substr(at));
        at += next.bytes;
        const unsigned code = next.character < 0x80      ? static_cast<unsigned>(next.character)
                              : next.character < 0x10000 ? table.code[next.character]
                                                         : 0;
        if (code > 0xFF) *end++ = static_cast<char>(code >> 8);
        *end++ = code == 0 && next.character != 0 ? '?' : static_cast<char>(code & 0xFF);
    }
    out.resize(static_cast<std::size_t>(end - out.data()));
    return out;
}

std::string decodeCp932(std::string_view bytes)
{
    const Tables &table = tables();
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (isAscii(bytes[at])) {
            at += takeAscii(out, bytes.substr(at));
            continue;
        }
        ++at;
        char16_t unit = table.single[byte];
        // A lead byte consumes a trail byte even if the pair is not a character; any other byte is one by itself.
        if (isCp932Lead(byte) && at < bytes.size() && isTrail(static_cast<unsigned char>(bytes[at])))
            unit = table.pair[pairOf(byte, static_cast<unsigned char>(bytes[at++]))];
        appendUtf8(out, unit == 0 ? kReplacementCharacter : unit);
    }
    return out;
}

} // namespace inin

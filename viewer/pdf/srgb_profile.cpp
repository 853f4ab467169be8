#include "viewer/pdf/srgb_profile.h"

#include "viewer/pdf/pdf_text.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace inin::viewer {

namespace {

constexpr std::size_t kHeaderBytes = 128, kTagBytes = 12;

/// Numbers in units of 1/65536, with signs.
std::string iccNumbers(std::string_view type, std::initializer_list<double> numbers)
{
    std::string out(type);
    appendBigEndian(out, 0, 4);
    for (const double number : numbers)
        appendBigEndian(out, static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(number * 65536))), 4);
    return out;
}

/// The transfer curve: a power with a linear part near black.
std::string iccCurve()
{
    constexpr std::uint32_t kPowerWithLinearPart = 3;
    std::string out = "para";
    appendBigEndian(out, 0, 4);
    appendBigEndian(out, kPowerWithLinearPart, 2);
    appendBigEndian(out, 0, 2);
    for (const double number : {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045})
        appendBigEndian(out, static_cast<std::uint32_t>(std::lround(number * 65536)), 4);
    return out;
}

std::string iccText(std::string_view ascii)
{
    constexpr std::uint32_t kRecords = 1, kRecordBytes = 12, kTextBegin = 28;
    std::string out = "mluc";
    appendBigEndian(out, 0, 4);
    appendBigEndian(out, kRecords, 4);
    appendBigEndian(out, kRecordBytes, 4);
    out += "enUS";
    appendBigEndian(out, static_cast<std::uint32_t>(ascii.size() * 2), 4);
    appendBigEndian(out, kTextBegin, 4);
    for (const char letter : ascii) appendBigEndian(out, static_cast<unsigned char>(letter), 2);
    return out;
}

struct IccTag {
    std::string_view name;
    std::string data;
};

std::vector<IccTag> iccTags()
{
    // Primaries and white point adapted from D65 to D50 by the Bradford matrix "chad".
    return {{"desc", iccText("sRGB")},
            {"cprt", iccText("No copyright, use freely")},
            {"wtpt", iccNumbers("XYZ ", {0.9642, 1, 0.8249})},
            {"chad", iccNumbers("sf32", {1.047882, 0.022919, -0.050217, 0.029587, 0.990479, -0.017059, -0.009232,
                                         0.015076, 0.751678})},
            {"rXYZ", iccNumbers("XYZ ", {0.436035, 0.222488, 0.013916})},
            {"gXYZ", iccNumbers("XYZ ", {0.385101, 0.716888, 0.097076})},
            {"bXYZ", iccNumbers("XYZ ", {0.143066, 0.060623, 0.713898})},
            {"rTRC", iccCurve()},
            {"gTRC", iccCurve()},
            {"bTRC", iccCurve()}};
}

std::string iccHeader(std::size_t size)
{
    std::string out;
    appendBigEndian(out, static_cast<std::uint32_t>(size), 4);
    appendBigEndian(out, 0, 4);
    appendBigEndian(out, 0x04200000, 4);
    out += "mntrRGB XYZ ";
    for (const std::uint32_t part : {2026U, 1U, 1U, 0U, 0U, 0U}) appendBigEndian(out, part, 2);
    out += "acsp";
    out.append(28, '\0'); // platform, flags, maker, model, attributes, rendering intent: perceptual
    out += iccNumbers("", {0.9642, 1, 0.8249}).substr(4);
    out.resize(kHeaderBytes, '\0');
    return out;
}

} // namespace

std::string srgbProfile()
{
    const std::vector<IccTag> all = iccTags();
    std::string table, data;
    appendBigEndian(table, static_cast<std::uint32_t>(all.size()), 4);
    const std::size_t begin = kHeaderBytes + table.size() + all.size() * kTagBytes;
    for (const IccTag &tag : all) {
        table += tag.name;
        appendBigEndian(table, static_cast<std::uint32_t>(begin + data.size()), 4);
        appendBigEndian(table, static_cast<std::uint32_t>(tag.data.size()), 4);
        data += tag.data;
        data.resize((data.size() + 3) / 4 * 4, '\0');
    }
    return iccHeader(begin + data.size()) + table + data;
}

} // namespace inin::viewer

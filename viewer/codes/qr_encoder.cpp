// QR codes of version 1, level H, with digits as data, after ISO/IEC 18004. x counts columns, y rows.

#include "viewer/codes/qr_library.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace inin::viewer {

namespace {

constexpr int kSide = 21;
constexpr int kTimingLine = 6; ///< the row and the column of alternating modules
constexpr std::size_t kDataBytes = 9, kCheckBytes = 17;
constexpr int kMasks = 8;

/// Modules by row; those of the symbol's fixed patterns are not data.
struct Symbol {
    std::array<std::array<bool, kSide>, kSide> dark{}, fixed{};
    [[nodiscard]] bool isDark(int x, int y) const
    {
        return dark[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
    }
    [[nodiscard]] bool isFixed(int x, int y) const
    {
        return fixed[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
    }
    void set(int x, int y, bool value) { dark[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = value; }
    void setFixed(int x, int y, bool value)
    {
        set(x, y, value);
        fixed[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = true;
    }
};

class Bits {
public:
    /// Adds the low `count` bits, the highest first.
    void add(unsigned value, int count)
    {
        while (count-- > 0) m_bits.push_back((value >> count & 1U) != 0);
    }
    [[nodiscard]] std::vector<std::uint8_t> bytes() const
    {
        std::vector<std::uint8_t> bytes((m_bits.size() + 7) / 8);
        for (std::size_t i = 0; i < m_bits.size(); ++i)
            if (m_bits[i]) bytes[i / 8] = static_cast<std::uint8_t>(bytes[i / 8] | 0x80U >> i % 8);
        return bytes;
    }

private:
    std::vector<bool> m_bits;
};

/// The data bytes: mode and length, three digits in ten bits, an end mark, and padding.
std::vector<std::uint8_t> dataBytes(std::string_view digits)
{
    constexpr unsigned kDigitMode = 1;
    constexpr int kLengthBits = 10, kEndBits = 4;
    constexpr std::array<int, 4> kBitsOfDigits = {0, 4, 7, 10};
    constexpr std::array<std::uint8_t, 2> kPadding = {0xEC, 0x11};
    Bits bits;
    bits.add(kDigitMode, 4);
    bits.add(static_cast<unsigned>(digits.size()), kLengthBits);
    for (; !digits.empty(); digits.remove_prefix(std::min<std::size_t>(3, digits.size()))) {
        unsigned number = 0;
        const std::string_view group = digits.substr(0, 3);
        for (const char digit : group) number = number * 10 + static_cast<unsigned>(digit - '0');
        bits.add(number, kBitsOfDigits[group.size()]);
    }
    bits.add(0, kEndBits);
    std::vector<std::uint8_t> bytes = bits.bytes();
    bytes.resize(std::min(bytes.size(), kDataBytes)); // the end mark may be cut
    for (std::size_t i = 0; bytes.size() < kDataBytes; ++i) bytes.push_back(kPadding[i % 2]);
    return bytes;
}

/// A product in the field of 256 elements modulo x^8 + x^4 + x^3 + x^2 + 1.
std::uint8_t product(std::uint8_t a, std::uint8_t b)
{
    unsigned result = 0;
    for (int bit = 7; bit >= 0; --bit) {
        result = result << 1 ^ (result >> 7) * 0x11DU;
        if ((b >> bit & 1) != 0) result ^= a;
    }
    return static_cast<std::uint8_t>(result);
}

/// The coefficients of (x - 1)(x - 2)(x - 4)… without the highest, which is 1.
std::array<std::uint8_t, kCheckBytes> generator()
{
    std::array<std::uint8_t, kCheckBytes> polynomial{};
    polynomial.back() = 1;
    std::uint8_t root = 1;
    for (std::size_t factor = 0; factor < kCheckBytes; ++factor) {
        for (std::size_t i = 0; i < kCheckBytes; ++i) {
            const std::uint8_t next = i + 1 < kCheckBytes ? polynomial[i + 1] : std::uint8_t{0};
            polynomial[i] = static_cast<std::uint8_t>(product(polynomial[i], root) ^ next);
        }
        root = product(root, 2);
    }
    return polynomial;
}

/// The Reed-Solomon remainder of the data.
std::array<std::uint8_t, kCheckBytes> checkBytes(const std::vector<std::uint8_t> &data)
{
    static const std::array<std::uint8_t, kCheckBytes> divisor = generator();
    std::array<std::uint8_t, kCheckBytes> remainder{};
    for (const std::uint8_t byte : data) {
        const auto factor = static_cast<std::uint8_t>(byte ^ remainder.front());
        std::rotate(remainder.begin(), remainder.begin() + 1, remainder.end());
        remainder.back() = 0;
        for (std::size_t i = 0; i < kCheckBytes; ++i)
            remainder[i] = static_cast<std::uint8_t>(remainder[i] ^ product(divisor[i], factor));
    }
    return remainder;
}

/// A finder pattern with its light border, around its middle.
void drawFinder(Symbol &symbol, int middleX, int middleY)
{
    for (int dy = -4; dy <= 4; ++dy) {
        for (int dx = -4; dx <= 4; ++dx) {
            const int x = middleX + dx, y = middleY + dy, ring = std::max(std::abs(dx), std::abs(dy));
            if (x >= 0 && x < kSide && y >= 0 && y < kSide) symbol.setFixed(x, y, ring != 2 && ring != 4);
        }
    }
}

/// The two copies of the error correction's level and of the mask's number, and the module that is always dark.
void drawFormat(Symbol &symbol, int mask)
{
    constexpr unsigned kLevelH = 2, kDivisor = 0x537, kInverted = 0x5412;
    const unsigned data = kLevelH << 3 | static_cast<unsigned>(mask);
    unsigned remainder = data;
    for (int i = 0; i < 10; ++i) remainder = remainder << 1 ^ (remainder >> 9) * kDivisor;
    const unsigned format = (data << 10 | remainder) ^ kInverted;
    for (int bit = 0; bit < 15; ++bit) {
        const bool isDark = (format >> bit & 1U) != 0;
        const int skipping = bit < kTimingLine ? bit : bit + 1; // past the timing line
        if (bit < 8) {
            symbol.setFixed(8, skipping, isDark);
            symbol.setFixed(kSide - 1 - bit, 8, isDark);
        } else {
            symbol.setFixed(bit == 8 ? 7 : 14 - bit, 8, isDark);
            symbol.setFixed(8, kSide - 15 + bit, isDark);
        }
    }
    symbol.setFixed(8, kSide - 8, true);
}

void drawFixedPatterns(Symbol &symbol)
{
    for (int i = 0; i < kSide; ++i) {
        symbol.setFixed(kTimingLine, i, i % 2 == 0);
        symbol.setFixed(i, kTimingLine, i % 2 == 0);
    }
    drawFinder(symbol, 3, 3);
    drawFinder(symbol, kSide - 4, 3);
    drawFinder(symbol, 3, kSide - 4);
    drawFormat(symbol, 0); // reserves its modules
}

/// Fills pairs of columns from the right, upwards and downwards in turn.
void drawBytes(Symbol &symbol, const std::vector<std::uint8_t> &bytes)
{
    std::size_t bit = 0;
    bool isUpward = true;
    for (int right = kSide - 1; right > 0; right -= 2, isUpward = !isUpward) {
        if (right == kTimingLine) --right;
        for (int i = 0; i < kSide * 2; ++i) {
            const int x = right - i % 2, y = isUpward ? kSide - 1 - i / 2 : i / 2;
            if (symbol.isFixed(x, y)) continue;
            symbol.set(x, y, (bytes[bit / 8] >> (7 - bit % 8) & 1) != 0);
            ++bit;
        }
    }
}

bool isInverted(int mask, int x, int y)
{
    switch (mask) {
    case 0:
        return (x + y) % 2 == 0;
    case 1:
        return y % 2 == 0;
    case 2:
        return x % 3 == 0;
    case 3:
        return (x + y) % 3 == 0;
    case 4:
        return (x / 3 + y / 2) % 2 == 0;
    case 5:
        return x * y % 2 + x * y % 3 == 0;
    case 6:
        return (x * y % 2 + x * y % 3) % 2 == 0;
    default:
        return ((x + y) % 2 + x * y % 3) % 2 == 0;
    }
}

Symbol masked(const Symbol &symbol, int mask)
{
    Symbol result = symbol;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            if (!symbol.isFixed(x, y) && isInverted(mask, x, y)) result.set(x, y, !symbol.isDark(x, y));
    drawFormat(result, mask);
    return result;
}

using Line = std::array<bool, kSide>;

/// Five modules alike cost 3, and each further one 1.
int costOfRuns(const Line &line)
{
    int cost = 0;
    for (auto begin = line.begin(); begin != line.end();) {
        const auto end = std::find(begin, line.end(), !*begin);
        const auto length = static_cast<int>(end - begin);
        if (length >= 5) cost += length - 2;
        begin = end;
    }
    return cost;
}

/// Each likeness of a finder pattern, beside four light modules or the border, costs 40.
int costOfFinders(const Line &line)
{
    constexpr std::array<bool, 7> kFinder = {true, false, true, true, true, false, true};
    const auto isLight = [&](int begin, int end) {
        for (int i = std::max(begin, 0); i < std::min(end, kSide); ++i)
            if (line[static_cast<std::size_t>(i)]) return false;
        return true;
    };
    int cost = 0;
    for (int i = 0; i + 7 <= kSide; ++i)
        if (std::equal(kFinder.begin(), kFinder.end(), line.begin() + i) &&
            (isLight(i - 4, i) || isLight(i + 7, i + 11)))
            cost += 40;
    return cost;
}

/// How much the pattern may confuse a reader.
int costOf(const Symbol &symbol)
{
    int cost = 0, darkCount = 0;
    for (int i = 0; i < kSide; ++i) {
        Line row = symbol.dark[static_cast<std::size_t>(i)], column{};
        for (int y = 0; y < kSide; ++y) column[static_cast<std::size_t>(y)] = symbol.isDark(i, y);
        cost += costOfRuns(row) + costOfRuns(column) + costOfFinders(row) + costOfFinders(column);
        darkCount += static_cast<int>(std::ranges::count(row, true));
    }
    // A square of four modules alike costs 3.
    for (int y = 0; y + 1 < kSide; ++y) {
        for (int x = 0; x + 1 < kSide; ++x) {
            const bool first = symbol.isDark(x, y);
            if (symbol.isDark(x + 1, y) == first && symbol.isDark(x, y + 1) == first &&
                symbol.isDark(x + 1, y + 1) == first)
                cost += 3;
        }
    }
    // Each five per cent away from half of the modules cost 10.
    constexpr int kAll = kSide * kSide;
    return cost + std::abs(darkCount * 2 - kAll) * 10 / kAll * 10;
}

} // namespace

QrModules encodeQr(const std::string &digits)
{
    std::vector<std::uint8_t> bytes = dataBytes(digits);
    const std::array<std::uint8_t, kCheckBytes> check = checkBytes(bytes);
    bytes.insert(bytes.end(), check.begin(), check.end());
    Symbol symbol;
    drawFixedPatterns(symbol);
    drawBytes(symbol, bytes);

    Symbol best;
    int leastCost = std::numeric_limits<int>::max();
    for (int mask = 0; mask < kMasks; ++mask) {
        const Symbol candidate = masked(symbol, mask);
        const int cost = costOf(candidate);
        if (cost >= leastCost) continue;
        leastCost = cost;
        best = candidate;
    }
    QrModules modules{kSide, {}};
    for (const Line &row : best.dark) modules.dark.insert(modules.dark.end(), row.begin(), row.end());
    return modules;
}

} // namespace inin::viewer

#include "viewer/io/fingerprint.h"

#include <fmt/format.h>

#include <bit>
#include <cstddef>

namespace inin::viewer {

namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
/// Odd numbers with evenly distributed bits.
constexpr std::uint64_t kFirstFactor = 0x9E3779B97F4A7C15, kSecondFactor = 0xD1B54A32D192ED03;

/// Up to eight bytes as a little-endian number.
std::uint64_t wordOf(std::string_view bytes)
{
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        word |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return word;
}

std::uint64_t scrambled(std::uint64_t value)
{
    value = (value ^ (value >> 32U)) * kSecondFactor;
    value = (value ^ (value >> 29U)) * kFirstFactor;
    return value ^ (value >> 32U);
}

} // namespace

void Fingerprint::mix(std::uint64_t word)
{
    m_state[0] = (m_state[0] ^ word) * kFirstFactor;
    m_state[0] ^= m_state[0] >> 32U;
    m_state[1] = std::rotl(m_state[1] + word * kSecondFactor, 27) * kFirstFactor;
}

void Fingerprint::add(std::string_view bytes)
{
    mix(bytes.size());
    for (; bytes.size() >= kWord; bytes.remove_prefix(kWord)) mix(wordOf(bytes.substr(0, kWord)));
    if (!bytes.empty()) mix(wordOf(bytes));
}

std::uint64_t Fingerprint::number() const
{
    return scrambled(m_state[0] ^ std::rotl(m_state[1], 32));
}

std::string Fingerprint::text() const
{
    return fmt::format("{:016x}{:016x}", scrambled(m_state[0]), scrambled(m_state[1]));
}

std::string fingerprintOf(std::string_view bytes)
{
    Fingerprint print;
    print.add(bytes);
    return print.text();
}

} // namespace inin::viewer

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace inin {

/// An immutable text that its copies share, in the size of a pointer: a run keeps hundreds of thousands of texts, and most
/// of them are the same in many letters. Not for use by several threads.
class SharedText {
public:
    SharedText() = default;
    SharedText(std::string_view text);
    SharedText(const std::string &text) : SharedText(std::string_view(text)) {}
    SharedText(const char *text) : SharedText(std::string_view(text)) {}
    SharedText(const SharedText &other) noexcept : m_block(other.m_block)
    {
        if (m_block != nullptr) ++m_block->users;
    }
    SharedText(SharedText &&other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
    SharedText &operator=(SharedText other) noexcept
    {
        std::swap(m_block, other.m_block);
        return *this;
    }
    ~SharedText();

    [[nodiscard]] std::string_view view() const
    {
        if (m_block == nullptr) return {};
        return {static_cast<const char *>(static_cast<const void *>(m_block + 1)), m_block->size};
    }

    friend bool operator==(const SharedText &a, const SharedText &b) { return a.view() == b.view(); }

private:
    /// The bytes follow it in memory.
    struct Block {
        std::uint32_t users;
        std::uint32_t size;
    };
    Block *m_block = nullptr; ///< null for the empty text
};

} // namespace inin

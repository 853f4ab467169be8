#include "printing/shared_text.h"

#include "runtime/runtime_error.h"

#include <cstring>
#include <limits>
#include <new>

namespace inin {

SharedText::SharedText(std::string_view text)
{
    if (text.empty()) return;
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(error_number::outOfMemory);
    m_block = static_cast<Block *>(::operator new(sizeof(Block) + text.size()));
    *m_block = {1, static_cast<std::uint32_t>(text.size())};
    std::memcpy(m_block + 1, text.data(), text.size());
}

SharedText::~SharedText()
{
    if (m_block != nullptr && --m_block->users == 0) ::operator delete(m_block);
}

} // namespace inin

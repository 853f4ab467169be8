#include "adapters/script/transcript.h"

#include <ostream>

namespace inin {

void Transcript::write(const Json &event)
{
    if (m_closed) return;
    constexpr int kOneLine = -1;
    constexpr bool kEscapeJapanese = false;
    m_out << event.dump(kOneLine, ' ', kEscapeJapanese, Json::error_handler_t::replace) << '\n' << std::flush;
}

void Transcript::fatal(std::int32_t number, const std::string &text)
{
    write({{"event", "fatal"}, {"number", number}, {"text", text}});
    close();
}

bool Transcript::isBroken() const
{
    return m_out.fail();
}

} // namespace inin

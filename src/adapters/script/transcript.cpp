#include "adapters/script/transcript.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <ostream>
#include <string_view>

namespace inin::script {

void Transcript::write(const Json &event)
{
    if (m_closed) return;
    constexpr int kOneLine = -1;
    constexpr bool kEscapeJapanese = false;
    m_out << event.dump(kOneLine, ' ', kEscapeJapanese, Json::error_handler_t::replace) << '\n' << std::flush;
}

void Transcript::box(const std::string &text, Icon icon, const std::string &title)
{
    write({{"event", "box"},
           {"text", text},
           {"icon", static_cast<int>(icon)},
           {"title", title.empty() ? std::string(kApplicationTitle) : title}});
}

void Transcript::start(const std::string &commandLine, WindowStyle style)
{
    write({{"event", "start"}, {"command", commandLine}, {"style", static_cast<int>(style)}});
}

void Transcript::address(const std::string &address)
{
    write({{"event", "open"}, {"address", address}});
}

void Transcript::followWindow(Form &form)
{
    window(form.name(), true);
    const auto shown = std::make_shared<bool>(true);
    form.watch([this, &form, shown] {
        if (!*shown || form.isLoaded()) return;
        *shown = false;
        window(form.name(), false);
    });
}

void Transcript::window(const std::string &name, bool shown)
{
    write({{"event", "window"}, {"name", name}, {"shown", shown}});
}

void Transcript::pointer(std::int16_t kind)
{
    write({{"event", "pointer"}, {"kind", kind}});
}

void Transcript::beep()
{
    write({{"event", "beep"}});
}

void Transcript::disconnect(int session) noexcept
{
    if (m_closed) return;
    constexpr std::string_view kBefore = R"({"event":"disconnect","session":)";
    std::array<char, 64> line{};
    char *at = std::ranges::copy(kBefore, line.data()).out;
    at = std::to_chars(at, line.data() + line.size() - 2, session).ptr;
    at = std::ranges::copy(std::string_view("}\n"), at).out;
    m_out.write(line.data(), at - line.data()).flush();
}

void Transcript::end(int code)
{
    write({{"event", "end"}, {"code", code}});
    close();
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

} // namespace inin::script

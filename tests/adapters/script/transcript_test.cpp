#include "adapters/script/transcript.h"

#include <doctest/doctest.h>

#include <array>
#include <cstdlib>
#include <new>
#include <ostream>
#include <sstream>
#include <streambuf>

using namespace inin;
using namespace inin::script;

namespace {

/// Set while a test simulates exhausted memory.
bool isMemoryExhausted = false;

/// A stream buffer of a fixed size.
class FixedBuffer : public std::streambuf {
public:
    FixedBuffer() { setp(m_bytes.data(), m_bytes.data() + m_bytes.size()); }
    [[nodiscard]] std::string text() const { return {pbase(), pptr()}; }

private:
    std::array<char, 256> m_bytes{};
};

} // namespace

[[gnu::noinline]] void *operator new(std::size_t size)
{
    void *memory = isMemoryExhausted ? nullptr : std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

[[gnu::noinline]] void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return isMemoryExhausted ? nullptr : std::malloc(size);
}

[[gnu::noinline]] void operator delete(void *memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

TEST_CASE("the end of a session is written even when memory is exhausted")
{
    FixedBuffer buffer;
    std::ostream out(&buffer);
    Transcript transcript(out);
    isMemoryExhausted = true;
    transcript.disconnect(7);
    isMemoryExhausted = false;
    CHECK(buffer.text() == "{\"event\":\"disconnect\",\"session\":7}\n");
}

TEST_CASE("an event is one line with its keys in insertion order")
{
    std::ostringstream out;
    Transcript(out).write({{"event", "box"}, {"text", "b\r\na"}, {"icon", 16}});
    CHECK(out.str() == "{\"event\":\"box\",\"text\":\"b\\r\\na\",\"icon\":16}\n");
}

TEST_CASE("an event with a single key is an object, too")
{
    std::ostringstream out;
    Transcript(out).write({{"event", "beep"}});
    CHECK(out.str() == "{\"event\":\"beep\"}\n");
}

TEST_CASE("Japanese text is written unescaped")
{
    std::ostringstream out;
    Transcript(out).write({{"event", "box"}, {"text", "委任状 髙﨑"}});
    CHECK(out.str() == "{\"event\":\"box\",\"text\":\"委任状 髙﨑\"}\n");
}

TEST_CASE("bytes that are not UTF-8 are replaced instead of throwing")
{
    std::ostringstream out;
    Transcript(out).write({{"event", "box"}, {"text", "a\x82z"}});
    CHECK(out.str() == "{\"event\":\"box\",\"text\":\"a\xEF\xBF\xBDz\"}\n");
}

TEST_CASE("a closed transcript writes nothing")
{
    std::ostringstream out;
    Transcript transcript(out);
    transcript.close();
    transcript.write({{"event", "beep"}});
    transcript.disconnect(1);
    CHECK(out.str().empty());
}

TEST_CASE("a fatal error is the last event")
{
    std::ostringstream out;
    Transcript transcript(out);
    transcript.fatal(94, "Null の使い方が不正です。");
    transcript.fatal(5, "second");
    CHECK(out.str() == "{\"event\":\"fatal\",\"number\":94,\"text\":\"Null の使い方が不正です。\"}\n");
}

TEST_CASE("a stream that fails makes the transcript broken")
{
    std::ostringstream out;
    Transcript transcript(out);
    CHECK_FALSE(transcript.isBroken());
    out.setstate(std::ios::badbit);
    transcript.write({{"event", "beep"}});
    CHECK(transcript.isBroken());
}

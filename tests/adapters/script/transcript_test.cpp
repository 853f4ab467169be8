#include "adapters/script/transcript.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace inin;

TEST_CASE("an event is one line with its keys in the order in which they were put")
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

TEST_CASE("Japanese stands in the transcript as it is")
{
    std::ostringstream out;
    Transcript(out).write({{"event", "box"}, {"text", "委任状 髙﨑"}});
    CHECK(out.str() == "{\"event\":\"box\",\"text\":\"委任状 髙﨑\"}\n");
}

TEST_CASE("bytes that are no UTF-8 are replaced, not thrown")
{
    std::ostringstream out;
    Transcript(out).write({{"event", "box"}, {"text", "a\x82z"}});
    CHECK(out.str() == "{\"event\":\"box\",\"text\":\"a\xEF\xBF\xBDz\"}\n");
}

TEST_CASE("a closed transcript writes nothing any more")
{
    std::ostringstream out;
    Transcript transcript(out);
    transcript.close();
    transcript.write({{"event", "beep"}});
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

TEST_CASE("a stream that takes nothing makes the transcript broken")
{
    std::ostringstream out;
    Transcript transcript(out);
    CHECK_FALSE(transcript.isBroken());
    out.setstate(std::ios::badbit);
    transcript.write({{"event", "beep"}});
    CHECK(transcript.isBroken());
}

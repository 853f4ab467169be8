#include "adapters/common/idle_pool.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

struct Handle {
    bool alive = true;
    bool usable = true;
    int tidied = 0;
    [[nodiscard]] bool isAlive() const { return alive; }
    bool tidy()
    {
        ++tidied;
        return usable;
    }
};

struct Pool {
    std::chrono::steady_clock::time_point now{};
    IdlePool<Handle> pool{[this] { return now; }};
    Handle *put(const std::string &key)
    {
        auto handle = std::make_unique<Handle>();
        Handle *raw = handle.get();
        pool.giveBack(key, std::move(handle));
        return raw;
    }
};

} // namespace

TEST_CASE("a connection that came back is handed out again, tidied, for the same string only")
{
    Pool own;
    Handle *raw = own.put("a");
    CHECK(raw->tidied == 1);
    CHECK(own.pool.take("b") == nullptr);
    CHECK(own.pool.take("a").get() == raw);
    CHECK(own.pool.take("a") == nullptr);
}

TEST_CASE("a connection is kept for just under a minute")
{
    Pool own;
    own.put("a");
    own.now += std::chrono::seconds{59};
    CHECK(own.pool.take("a") != nullptr);
    own.put("a");
    own.now += std::chrono::seconds{60};
    CHECK(own.pool.take("a") == nullptr);
}

TEST_CASE("a dead connection is dropped and the next one is tried")
{
    Pool own;
    Handle *first = own.put("a");
    own.put("a")->alive = false;
    CHECK(own.pool.take("a").get() == first);
    CHECK(own.pool.idleCount() == 0);
}

TEST_CASE("a connection that cannot be tidied is not kept")
{
    Pool own;
    auto handle = std::make_unique<Handle>();
    handle->usable = false;
    own.pool.giveBack("a", std::move(handle));
    CHECK(own.pool.idleCount() == 0);
}

TEST_CASE("four idle connections of a string are kept, not five")
{
    Pool own;
    for (int count = 0; count < 5; ++count) own.put("a");
    CHECK(own.pool.idleCount() == 4);
}

TEST_CASE("a closed pool keeps nothing")
{
    Pool own;
    own.put("a");
    own.pool.close();
    own.put("a");
    CHECK(own.pool.idleCount() == 0);
}

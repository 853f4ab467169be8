#include "adapters/database/idle_pool.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

struct State {
    bool alive = true;
    bool usable = true;
    int tidied = 0;
};

/// The test owns the state, so it can see when the pool closes the handle.
struct Handle {
    std::shared_ptr<State> state = std::make_shared<State>();
    [[nodiscard]] bool isAlive() const { return state->alive; }
    [[nodiscard]] bool tidy() const
    {
        ++state->tidied;
        return state->usable;
    }
};

struct Pool {
    std::chrono::steady_clock::time_point now{};
    IdlePool<Handle> pool{[this] { return now; }};
    std::shared_ptr<State> put(const std::string &key)
    {
        auto handle = std::make_unique<Handle>();
        std::shared_ptr<State> state = handle->state;
        pool.giveBack(key, std::move(handle));
        return state;
    }
};

} // namespace

TEST_CASE("a returned connection is reused after a cleanup, for the same string only")
{
    Pool own;
    const std::shared_ptr<State> state = own.put("a");
    CHECK(state->tidied == 1);
    CHECK(own.pool.take("b") == nullptr);
    const std::unique_ptr<Handle> taken = own.pool.take("a");
    REQUIRE(taken != nullptr);
    CHECK(taken->state == state);
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
    const std::shared_ptr<State> first = own.put("a");
    own.put("a")->alive = false;
    const std::unique_ptr<Handle> taken = own.pool.take("a");
    REQUIRE(taken != nullptr);
    CHECK(taken->state == first);
    CHECK(own.pool.idleCount() == 0);
}

TEST_CASE("a connection that cannot be cleaned up is not kept")
{
    Pool own;
    auto handle = std::make_unique<Handle>();
    handle->state->usable = false;
    own.pool.giveBack("a", std::move(handle));
    CHECK(own.pool.idleCount() == 0);
}

TEST_CASE("at most four idle connections per string are kept")
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

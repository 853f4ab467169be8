#include "runtime/runtime_error.h"
#include "system/program_edges.h"

#include <new>
#include <stdexcept>
#include <string>

#include <doctest/doctest.h>

using namespace inin;

namespace {

struct End {
    int code = 0;
    std::string reported;
};

End endOf(const std::function<int()> &body)
{
    End end;
    end.code = runProgram(7, body, [&](const std::string &message) { end.reported += message + "\n"; });
    return end;
}

} // namespace

TEST_CASE("a program ends with its own code and prints nothing by itself")
{
    for (const int code : {0, 1, 2}) {
        const End end = endOf([code] { return code; });
        CHECK(end.code == code);
        CHECK(end.reported.empty());
    }
}

TEST_CASE("every exception becomes one message and the exit code of a failure")
{
    const End ofLogic = endOf([]() -> int { throw RuntimeError(error_number::invalidCall, "帳票がありません。"); });
    CHECK(ofLogic.code == 7);
    CHECK(ofLogic.reported == "帳票がありません。\n");
    const End ofLibrary = endOf([]() -> int { throw std::length_error("too long"); });
    CHECK(ofLibrary.code == 7);
    CHECK(ofLibrary.reported == "too long\n");
    const End withoutMemory = endOf([]() -> int { throw std::bad_alloc(); });
    CHECK(withoutMemory.code == 7);
    CHECK(withoutMemory.reported == "メモリが不足しています。\n");
}

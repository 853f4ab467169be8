#include "faults/fault_plan.h"

#include "system/program_edges.h"

#include <algorithm>

namespace inin {

namespace {

bool areAllTried()
{
    return environmentText("ININ_FAULTS") == "all";
}

} // namespace

std::vector<std::string> sampleOf(const std::vector<std::string> &plays)
{
    constexpr std::size_t kStep = 6;
    std::vector<std::string> tried;
    for (std::size_t at = 0; at < plays.size(); at += areAllTried() ? 1 : kStep) tried.push_back(plays[at]);
    return tried;
}

std::vector<std::size_t> operationsToFail(std::size_t count, std::size_t round)
{
    constexpr std::size_t kFew = 5;
    const std::size_t step = areAllTried() ? 1 : std::max<std::size_t>(1, count / kFew);
    std::vector<std::size_t> operations;
    for (std::size_t operation = 1 + round % step; operation <= count; operation += step)
        operations.push_back(operation);
    return operations;
}

} // namespace inin

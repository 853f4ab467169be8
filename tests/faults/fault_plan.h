#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace inin {

/// Counts the operations of a run that can fail and lets one of them fail. A run without a failure shows how many there
/// are.
class FaultPlan {
public:
    FaultPlan() = default;
    /// The operation of this number fails, 1 is the first.
    explicit FaultPlan(std::size_t failing) : m_failing(failing) {}

    /// True for the operation that must fail.
    bool fails(const char *operation)
    {
        const bool isFailing = ++m_count == m_failing;
        if (isFailing) m_failed = operation;
        return isFailing;
    }
    [[nodiscard]] std::size_t count() const { return m_count; }
    /// The operation that failed; empty if the run did not reach it.
    [[nodiscard]] std::string failed() const { return m_failed.load(); }

private:
    const std::size_t m_failing = 0;
    std::atomic<std::size_t> m_count = 0;
    std::atomic<const char *> m_failed = "";
};

/// All plays if the environment variable ININ_FAULTS is "all"; otherwise one in six.
[[nodiscard]] std::vector<std::string> sampleOf(const std::vector<std::string> &plays);

/// The operations to let fail, of `count`: all if the environment variable ININ_FAULTS is "all"; otherwise a few, others in
/// each `round`.
[[nodiscard]] std::vector<std::size_t> operationsToFail(std::size_t count, std::size_t round);

} // namespace inin

#include "faults/faulty_allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace inin {

namespace {

std::atomic<std::ptrdiff_t> live = 0;
std::atomic<std::size_t> counted = 0;
std::atomic<std::size_t> failingAllocation = 0;

} // namespace

FaultyAllocations::FaultyAllocations(std::size_t failing)
{
    counted = 0;
    failingAllocation = failing;
}

FaultyAllocations::~FaultyAllocations()
{
    failingAllocation = 0;
}

std::size_t FaultyAllocations::count()
{
    return counted;
}

std::ptrdiff_t liveAllocations()
{
    return live;
}

} // namespace inin

void *operator new(std::size_t size)
{
    const std::size_t number = ++inin::counted;
    void *const memory = number == inin::failingAllocation ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    ++inin::live;
    return memory;
}

void operator delete(void *memory) noexcept
{
    if (memory == nullptr) return;
    --inin::live;
    std::free(memory); // NOLINT(cppcoreguidelines-owning-memory): this is what owners call
}

void operator delete(void *memory, std::size_t) noexcept
{
    operator delete(memory);
}

#include "faults/faulty_allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <string_view>

#include <dlfcn.h>

namespace inin {

namespace {

std::atomic<std::ptrdiff_t> live = 0;
std::atomic<std::size_t> counted = 0;
std::atomic<std::size_t> failingAllocation = 0;
std::atomic<bool> isCounting = false, isFailed = false;

/// The toolkit is not made for failed allocations: one in a constructor of its settings ends the process.
bool isInToolkit(const void *caller)
{
    Dl_info library{};
    return dladdr(caller, &library) != 0 &&
           std::string_view(library.dli_fname).find("/libQt6") != std::string_view::npos;
}

bool mustFail(const void *caller)
{
    return isCounting && ++counted == failingAllocation && !isInToolkit(caller);
}

} // namespace

FaultyAllocations::FaultyAllocations(std::size_t failing)
{
    counted = 0;
    isFailed = false;
    failingAllocation = failing;
    isCounting = true;
}

FaultyAllocations::~FaultyAllocations()
{
    isCounting = false;
}

std::size_t FaultyAllocations::count()
{
    return counted;
}

bool FaultyAllocations::hasFailed()
{
    return isFailed;
}

std::ptrdiff_t liveAllocations()
{
    return live;
}

} // namespace inin

void *operator new(std::size_t size)
{
    const bool isFailing = inin::mustFail(__builtin_return_address(0));
    if (isFailing) inin::isFailed = true;
    void *const memory = isFailing ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    ++inin::live;
    return memory;
}

void *operator new(std::size_t size, const std::nothrow_t &) noexcept
try {
    return operator new(size);
} catch (const std::bad_alloc &) {
    return nullptr;
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

void operator delete(void *memory, const std::nothrow_t &) noexcept
{
    operator delete(memory);
}

// Tries to get a writing statement past the check of read-only record sets: an independent reader must find no writing
// word in a statement that the check accepts.

#include "adapters/odbc/single_select.h"
#include "fuzz/server_reader.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(static_cast<const char *>(static_cast<const void *>(data)), size);
    if (!inin::odbc::singleSelectProblem(text).empty()) return 0;
    const std::string write = inin::fuzz::ServerReader(text).firstWrite();
    if (write.empty()) return 0;
    std::fprintf(stderr, "smuggled: %s\n", write.c_str());
    std::abort();
}

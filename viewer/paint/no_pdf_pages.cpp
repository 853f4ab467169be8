#include "runtime/runtime_error.h"
#include "viewer/paint/page_source.h"

namespace inin::viewer {

std::unique_ptr<PageSource> openPdf(std::string /*bytes*/, int /*longestSide*/)
{
    throw RuntimeError(error_number::invalidCall, "この版では PDF を読み取れません。");
}

} // namespace inin::viewer

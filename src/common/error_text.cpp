#include "common/error_text.h"

#include "runtime/text.h"

namespace inin {

std::string numberedText(const RuntimeError &error)
{
    return "(" + std::to_string(error.number()) + ")" + error.description();
}

std::string numberLineText(const RuntimeError &error)
{
    return std::to_string(error.number()).append(kCrLf).append(error.description());
}

} // namespace inin

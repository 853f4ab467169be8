#include "common/error_text.h"

#include "runtime/text.h"

namespace inin {

std::string numberedText(const RuntimeError &error)
{
    return "(" + std::to_string(error.number()) + ")" + error.description();
}

std::string numberLineText(const RuntimeError &error)
{
    return headingText(std::to_string(error.number()), error.description());
}

std::string headingText(std::string_view heading, std::string_view text)
{
    return std::string(heading).append(kCrLf).append(text);
}

} // namespace inin

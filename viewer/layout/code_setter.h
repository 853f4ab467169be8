#pragma once

#include "viewer/form/form_document.h"

#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The QR codes of a form, as black paths for the letter's code.
class CodeSetter {
public:
    CodeSetter() = default;
    explicit CodeSetter(std::vector<CodeCommand> codes) : m_codes(std::move(codes)) {}
    /// The codes have the text without its hyphens. An empty text shows no codes.
    void show(std::string_view text);
    [[nodiscard]] const std::vector<PathCommand> &paths() const { return m_paths; }

private:
    std::vector<CodeCommand> m_codes;
    std::string m_last;
    std::vector<PathCommand> m_paths; ///< one for each code, or none
};

} // namespace inin::viewer

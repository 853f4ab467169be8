#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A CSV file under the name that a form document knows it by.
struct DataSource {
    std::string name;
    std::string path;
    bool hasTitles = true;
};

/// A form document and what it is filled from.
struct ReportOrder {
    std::string form;
    std::vector<DataSource> data;
};

/// A text that takes the place of one item of the form; the name is report, section if any, and item, with dots.
struct ItemText {
    std::string name;
    std::string text;
};

enum class Paper { A4, A5, B5 };
/// What the script's last line asks for; `none` in a merger's script.
enum class Ending { none, show, print, printByDialog };

/// What one command script asks for.
struct CommandScript {
    std::string title;
    std::vector<ReportOrder> reports; ///< one, or several to merge
    std::vector<ItemText> items;
    std::int32_t offsetX = 0; ///< tenths of a millimetre, to the right
    std::int32_t offsetY = 0; ///< tenths of a millimetre, downwards
    Paper paper = Paper::A4;
    Ending ending = Ending::none;
    /// A sentence for each line that was skipped or has no effect here, with its number.
    std::vector<std::string> notices;
};

/// Reads the bytes of a script (code page 932, CR LF). Commands are known in any case; a line that is none is skipped
/// and told, so that nothing in a script stops the reading.
[[nodiscard]] CommandScript readCommandScript(std::string_view bytes);

} // namespace inin::viewer

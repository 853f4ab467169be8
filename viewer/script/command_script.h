#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A CSV file and its name in the form document.
struct DataSource {
    std::string name;
    std::string path;
    bool hasTitles = true;
};

/// A form document and its data sources.
struct ReportOrder {
    std::string form;
    std::vector<DataSource> data;
};

/// A text that replaces an item of the form. The name is report, section (optional) and item, separated by dots.
struct ItemText {
    std::string name;
    std::string text;
};

enum class Paper { A4, A5, B5 };
/// The action of the script's last line; `none` in a merger's script.
enum class Ending { none, show, print, printByDialog };

/// The contents of a command script.
struct CommandScript {
    std::string title;
    std::vector<ReportOrder> reports; ///< one, or several to merge
    std::vector<ItemText> items;
    std::int32_t offsetX = 0; ///< tenths of a millimetre, to the right
    std::int32_t offsetY = 0; ///< tenths of a millimetre, downwards
    Paper paper = Paper::A4;
    bool namesPaper = false; ///< otherwise `paper` is a default
    Ending ending = Ending::none;
    /// A sentence with the line number for each line that was skipped or has no effect.
    std::vector<std::string> notices;
};

/// Reads a script (code page 932, CR LF) to its end. Commands are case-insensitive; invalid lines are skipped and
/// reported.
[[nodiscard]] CommandScript readCommandScript(std::string_view bytes);

} // namespace inin::viewer

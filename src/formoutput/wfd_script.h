#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace inin {

/// The data of one report for the form tools.
struct WfdReport {
    struct DataEntry {
        std::string name;
        std::string path;
        std::int16_t noTitle = 0; ///< -1: the CSV has no title row
    };
    struct ItemValue {
        std::string report, section, item, value;
    };

    std::string form;
    std::string title;
    std::array<DataEntry, 5> data; ///< numbered 1 to 5
    std::int32_t offsetX = 0, offsetY = 0;
    std::int16_t zoom = 2;
    std::int16_t repeatStart = 0;
    std::vector<ItemValue> items;
};

// Action of the form tool on a script; any other number shows the form.
inline constexpr std::int16_t kExeShow = 0;
inline constexpr std::int16_t kExePrint = 1;
inline constexpr std::int16_t kExePrintByDialog = 2;

inline constexpr std::int16_t kDefaultPaper = 0;

/// The lines of a report's script. Paper 1 is A5, 2 is B5, -1 repeats the previous line, any other is A4.
[[nodiscard]] std::vector<std::string> scriptLines(const WfdReport &report, std::int16_t iExeType, std::int16_t iPaper);
/// The script's last line.
[[nodiscard]] std::string endLine(std::int16_t iExeType);
/// A data source in the merger's syntax, which names separator, quote character and no-title flag explicitly.
[[nodiscard]] std::string mergeDataLine(const std::string &name, const std::string &path);

} // namespace inin

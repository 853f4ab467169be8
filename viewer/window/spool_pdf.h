#pragma once

#include "viewer/form/geometry.h"
#include "viewer/window/print_order.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

/// A finished PDF to be printed unchanged; the offset is already applied.
struct SpoolJob {
    QString pdf; ///< path of the file; it may be deleted once the job is accepted
    QString title;
    std::optional<Point> paper; ///< empty for sheets of different sizes, which the file itself states
    PrintOrder order;
};

struct SpoolResult {
    enum class End { taken, refused, cancelled };
    End end = End::taken;
    std::string words;     ///< the system's own message when it refused
    std::string jobNumber; ///< the queue's number of the job; empty where the system reports none
};

/// Passes a job to the system. Calls `goesOn` repeatedly meanwhile and withdraws the job when it returns false.
using SpoolPdf = std::function<SpoolResult(const SpoolJob &job, const std::function<bool()> &goesOn)>;

/// The trays in the printer's options as `lpoptions -l` lists them: one line per option, "InputSlot/Media Source: *Auto
/// Tray1". A tray's key is "InputSlot=Tray1", which `lp` accepts as an option.
[[nodiscard]] std::vector<TrayChoice> traysInOptions(const QString &options);

/// The trays of a printer in the path that printing takes; empty where they are unknown.
[[nodiscard]] std::vector<TrayChoice> systemTrays(const QString &printer);

/// Uses the system's `lp`, which prints a PDF unchanged; empty where there is none.
[[nodiscard]] SpoolPdf systemSpool();
/// The arguments for `lp`.
[[nodiscard]] QStringList lpArguments(const SpoolJob &job);
/// The number in the answer of `lp`, "request id is Office-123 (1 file(s))" in the user's language; empty if it has none.
[[nodiscard]] std::string jobNumberIn(const QString &answer, const QString &printer);
/// Runs the `lp` program at this path.
[[nodiscard]] SpoolResult runLp(const QString &lp, const SpoolJob &job, const std::function<bool()> &goesOn);

} // namespace inin::viewer

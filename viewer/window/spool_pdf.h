#pragma once

#include "viewer/script/command_script.h"
#include "viewer/window/print_order.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <string>

namespace inin::viewer {

/// A finished PDF that is to be printed as it is; the offset is in it already.
struct SpoolJob {
    QString pdf; ///< the file's path; it may go as soon as the job is taken
    QString title;
    Paper paper = Paper::A4;
    PrintOrder order;
};

struct SpoolResult {
    enum class End { taken, refused, cancelled };
    End end = End::taken;
    std::string words; ///< the system's own, when it refused
};

/// Hands a job to the system. While that takes time `goesOn` is asked again and again; false takes the job back.
using SpoolPdf = std::function<SpoolResult(const SpoolJob &job, const std::function<bool()> &goesOn)>;

/// By the system's `lp`, which takes a PDF as it is; empty where there is none.
[[nodiscard]] SpoolPdf systemSpool();
/// What `lp` is told.
[[nodiscard]] QStringList lpArguments(const SpoolJob &job);
/// Runs `lp`, the program at that path.
[[nodiscard]] SpoolResult runLp(const QString &lp, const SpoolJob &job, const std::function<bool()> &goesOn);

} // namespace inin::viewer

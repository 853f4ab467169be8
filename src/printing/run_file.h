#pragma once

#include "shell/app.h"

#include <cstdint>
#include <memory>
#include <string>

namespace inin {

/// "委任状.run" next to the CSV. A run locks it from the removal of the old CSV until the form tool is started, so that two
/// programs on one site do not mix their letters and scripts. The file remains and describes the last run
/// (`transfer/run_record.h`); the form viewer compares it with the CSV.
/// If the file cannot be created or locked, the run continues without it.
class RunFile {
public:
    explicit RunFile(App &app) : m_app(app) {}
    /// Waits a few seconds for the run of another program, then offers the operator a retry. False if the operator
    /// cancels.
    [[nodiscard]] bool lock();
    void setLetters(std::uint64_t csvSize, std::int16_t letters);
    void unlock() { m_file.reset(); }

private:
    [[nodiscard]] bool isBusy();
    [[nodiscard]] bool isBusyForSeconds();
    [[nodiscard]] std::string holder();
    void write(const std::string &lines);

    App &m_app;
    std::string m_path;
    std::unique_ptr<OutputFile> m_file; ///< null while not locked
};

} // namespace inin

#pragma once

#include "app/inin_site/command_line.h"

namespace inin::site {

/// The command `make`. The values are kept as given; each is validated with a message of its own.
class MakeLine : public CommandLine {
public:
    MakeLine(CLI::App &app, HelpLanguage language);

    /// `connection` counts if the command line has no connection.
    [[nodiscard]] Command read(const std::string &connection) const;

private:
    [[nodiscard]] Command withOrder(MakeCommand command) const;

    std::string m_folder, m_into, m_connectionFile, m_patients = "300", m_seed = "1", m_month, m_staff;
    bool m_force = false;
};

} // namespace inin::site

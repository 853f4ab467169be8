#pragma once

#include "app/inin_site/command_line.h"

namespace inin::site {

/// The command `why`.
class WhyLine : public CommandLine {
public:
    WhyLine(CLI::App &app, HelpLanguage language);

    [[nodiscard]] Command read() const;

private:
    // Each sets its part of the conditions, or gives the sentence about a bad option.
    [[nodiscard]] std::optional<BadCommand> readVisits(due::Conditions &conditions) const;
    [[nodiscard]] std::optional<BadCommand> readTime(due::Conditions &conditions) const;
    [[nodiscard]] std::optional<BadCommand> readLastDay(due::Conditions &conditions) const;
    [[nodiscard]] std::optional<BadCommand> readNumbers(due::Conditions &conditions) const;

    std::string m_folder, m_month, m_lastDay, m_visits = "planned", m_patient, m_staff, m_insurance;
    bool m_isAgent = false, m_isWithEnded = false, m_isJson = false;
};

} // namespace inin::site

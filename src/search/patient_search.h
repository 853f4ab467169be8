#pragma once

#include "screen/controls.h"
#include "shell/app.h"

#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// The way to the modal pick list of patients, and from a patient's number to the name.
class cls患者検索 {
public:
    explicit cls患者検索(App &app) : m_app(app) {}

    /// Words of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// Base number of the chosen patient.
    std::int32_t iArea = 0;
    /// In: the patient to highlight when the list opens, 0 for none. Out: the chosen one.
    std::int32_t nSeledCD = 0;
    [[nodiscard]] const std::string &csSeledName() const { return m_seledName; }

    /// Shows the list modally: 0 a patient was chosen, 1 the window was left without a choice, -1 a failure.
    [[nodiscard]] std::int16_t iDspStart();

    // The patient's name by the number: 0 found, -1 not found, which leaves the control empty.
    std::int16_t iSetRiyouName(std::int32_t nCode, Label &Ctrl);  ///< writes the caption
    std::int16_t iSetRiyouName2(std::int32_t nCode, Label &Ctrl); ///< writes the control's default property
    std::int16_t iSetRiyouName2(std::int32_t nCode, TextBox &Ctrl);
    /// The name itself, empty when there is no such patient.
    [[nodiscard]] std::string csSetRiyouName_Text(std::int32_t nCode);

private:
    /// Nothing when there is no such patient.
    [[nodiscard]] std::optional<std::string> readName(std::int32_t nCode);
    std::int16_t writeName(std::int32_t nCode, Attribute<std::string> &target);

    App &m_app;
    std::string m_errStr;
    std::string m_seledName;
};

} // namespace inin

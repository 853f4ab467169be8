#pragma once

#include "screen/controls.h"
#include "shell/app.h"

#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// Shows the modal search list of patients, and finds a patient's name by number.
class cls患者検索 {
public:
    explicit cls患者検索(App &app) : m_app(app) {}

    /// Text of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// Branch number of the chosen patient.
    std::int32_t iArea = 0;
    /// In: the patient to highlight when the list opens, 0 for none. Out: the chosen one.
    std::int32_t nSeledCD = 0;
    [[nodiscard]] const std::string &csSeledName() const { return m_seledName; }

    /// Shows the list modally: 0 a patient was chosen, 1 the window was closed without a choice, -1 a failure.
    [[nodiscard]] std::int16_t iDspStart();

    // Writes the patient's name by number: 0 found, -1 not found, which empties the control.
    std::int16_t iSetRiyouName(std::int32_t nCode, Label &Ctrl);  ///< writes the caption
    std::int16_t iSetRiyouName2(std::int32_t nCode, Label &Ctrl); ///< writes the control's default property
    std::int16_t iSetRiyouName2(std::int32_t nCode, TextBox &Ctrl);
    /// The name itself, empty if there is no such patient.
    [[nodiscard]] std::string csSetRiyouName_Text(std::int32_t nCode);

private:
    /// nullopt if there is no such patient.
    [[nodiscard]] std::optional<std::string> readName(std::int32_t nCode);
    std::int16_t writeName(std::int32_t nCode, Attribute<std::string> &target);

    App &m_app;
    std::string m_errStr;
    std::string m_seledName;
};

} // namespace inin

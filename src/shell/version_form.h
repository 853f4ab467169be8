#pragma once

#include "platform/key_codes.h"
#include "screen/form.h"
#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

/// This program's number in the suite's version window.
inline constexpr std::int16_t kOwnSystemId = 55;

/// The modal version window: the calling program's name and the version lines of "Sorvin.ver".
class frmVer : public Form {
public:
    explicit frmVer(App &app);

    ImageBox PicTitle{"PicTitle"};
    Label laVer{"laVer"};
    ListBox lstVer{"lstVer"};
    Label shp01{"shp01"}; ///< the line that separates the button
    Button btnReturn{"btnReturn"};
    MenuEntry mnFunc{"mnFunc"};
    MenuEntry mnF12{"mnF12", kF12Key};

    /// Set by the caller before the window loads; 0 shows the lines of every program.
    std::int16_t iSystemId = 0;

    void btnReturn_Click();
    void mnF12_Click();

    /// Fills the list with the lines for iSystemId and for every program.
    void vDspVersion();
    /// Fills the texts whose keys the version file has and returns all its fields, each ended by CR LF. A missing file
    /// gives the empty text; a run-time error ends the reading without a message and keeps the texts read so far.
    [[nodiscard]] std::string csGetVersionFile(std::string &csVersion, std::string &csUpdate);
    /// Fills the window from "Version.ini" in the data folder instead. Its records have three fields: the first record
    /// names the program; the third field of each later one is a line, shown if its first field is `systemId` or if
    /// `systemId` is 0. Part of an older window; nothing calls it. Errors of the file go to the caller.
    void readVersionIni(std::int16_t systemId);

protected:
    void Form_Load() override;
    void Form_KeyDown(std::int16_t &KeyCode) override;

private:
    App &m_app;
};

} // namespace inin

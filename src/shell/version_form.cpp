#include "shell/version_form.h"

#include "common/field_input.h"
#include "platform/key_codes.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "shell/error_box.h"
#include "shell/settings.h"

#include <array>
#include <initializer_list>
#include <string_view>

namespace inin {

namespace {

constexpr const char *kVersionFile = "\\Sorvin.ver";
constexpr std::int32_t kNameColour = 0x00E1F7E3;

/// A line of the list and its program, 0 for all of them.
struct VersionLine {
    std::string text;
    std::string label;
    std::int16_t owner = 0;
};
constexpr std::size_t kMaxLines = 20;

/// Sets `value` to the text after the first "=" if the field contains the key at any position.
void takeAfterEquals(const std::string &field, std::string_view key, std::string &value)
{
    if (field.find(key) != std::string::npos) value = field.substr(field.find('=') + 1);
}

} // namespace

frmVer::frmVer(App &app) : Form("frmVer"), m_app(app)
{
    Caption = "System Version.";
    laVer.BackColor = kNameColour;
    btnReturn.Caption = "戻 る";
    btnReturn.TabIndex = 0;
    btnReturn.Default = true;
    btnReturn.Cancel = true;
    btnReturn.onClick = [this] { btnReturn_Click(); };
    lstVer.Style = ListStyle::open;
    lstVer.TabIndex = 1;
    mnFunc.Caption = "機能(&F)";
    mnF12.Caption = "戻る";
    mnF12.onClick = [this] { mnF12_Click(); };
    for (Control *control : std::initializer_list<Control *>{&PicTitle, &laVer, &lstVer, &shp01, &btnReturn, &mnFunc})
        add(*control);
    add(mnF12, &mnFunc);
}

void frmVer::Form_Load()
{
    lstVer.Clear();
    vDspVersion();
}

void frmVer::Form_KeyDown(std::int16_t &KeyCode)
try {
    if (KeyCode == kF12Key) mnF12_Click();
} catch (const RuntimeError &error) {
    headingBox(m_app, "フォームKeyDown()でエラー", numberLineText(error));
}

void frmVer::btnReturn_Click()
{
    mnF12_Click();
}

void frmVer::mnF12_Click()
{
    unload();
}

void frmVer::vDspVersion()
{
    std::array<VersionLine, kMaxLines> lines;
    (void)csGetVersionFile(lines[0].text, lines[1].text); // the whole file is not needed here
    if (m_app.iTankaKaitei > 0) lines[2].text = "※令和元年 単価変更対応済";
    for (const VersionLine &line : lines) {
        const bool isOurs = iSystemId == 0 || line.owner == iSystemId || line.owner == 0;
        // Deliberate: no line has a label, but each has the colon.
        if (!line.text.empty() && isOurs) lstVer.AddItem(line.text + ": " + line.label, 0);
    }
}

std::string frmVer::csGetVersionFile(std::string &csVersion, std::string &csUpdate)
{
    std::string whole;
    try {
        const std::string path = m_app.gcsAppPath + kVersionFile;
        if (!bFileExists(m_app, path)) return whole;
        FieldInput file(m_app.platform, path);
        while (!file.isAtEnd()) {
            const std::string field = file.next();
            takeAfterEquals(field, "VERSION=", csVersion);
            takeAfterEquals(field, "UUPDATE=", csUpdate);
            whole.append(field).append(kCrLf);
        }
    } catch (const RuntimeError &) {
        // No message: the window shows the texts read so far.
    }
    return whole;
}

void frmVer::readVersionIni(std::int16_t systemId)
{
    FieldInput file(m_app.platform, csDataDir(m_app) + "Version.ini");
    for (bool isFirst = true; !file.isAtEnd(); isFirst = false) {
        const std::string owner = file.next();
        const std::string name = file.next();
        const std::string text = file.next();
        if (isFirst) {
            laVer.Caption = name;
            laVer.Caption = text;
        } else if (systemId == 0 || toInteger(Variant(owner)) == systemId) {
            lstVer.AddItem(trim(text), 0);
        }
    }
}

} // namespace inin

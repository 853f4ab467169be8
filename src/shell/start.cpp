#include "shell/start.h"

#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "shell/settings.h"

#include <optional>

namespace inin {

namespace {

/// Two characters of the setting "BASEID" as a number. The setting is read anew for each of its two codes. A missing
/// key, a value that is too short and a non-numeric text are all errors, because a branch cannot be guessed.
std::int16_t codeOfBase(App &app, std::size_t start)
{
    constexpr std::size_t kCodeLength = 2;
    const std::string base = toText(vGetSystemValue(app, "BASEID", WarnIfMissing::no), app.regional);
    const std::string code = mid(base, start, kCodeLength);
    if (length(code) < kCodeLength) throw RuntimeError(error_number::typeMismatch);
    return toInteger(Variant(code));
}

} // namespace

frmBack::frmBack(App &app) : Form("frmBack"), m_app(app)
{
    Caption = "Sorvin総合システム";
    add(ImgWall);
}

void frmBack::Form_Load()
{
    setMousePointer(kPointerHourglass);
    m_app.gcsAppPath = csSetAppDir(m_app, m_app.platform.files.applicationFolder());
    std::string wallpaper = csIconDir(m_app);
    wallpaper += toText(vGetSystemValue(m_app, "WALLPAPER", WarnIfMissing::yes), m_app.regional);
    m_app.iKyotenCd = codeOfBase(m_app, 1);
    m_app.iKyotenEb = codeOfBase(m_app, 3);
    if (bFileExists(m_app, wallpaper)) {
        m_app.platform.windows.checkPicture(wallpaper);
        ImgWall.Picture = wallpaper;
    }
    setMousePointer(kPointerDefault);
}

void frmBack::Form_Resize()
{
    ImgWall.Width = Width;
    ImgWall.Height = Height;
}

void Main(App &app)
{
    // Both forms outlive the handler, because their windows are still open while its box is shown.
    frmBack background(app);
    std::optional<frmPrintInin> screen;
    try {
        app.platform.windows.show(background, Modality::modeless);
        screen.emplace(app);
        app.platform.windows.show(*screen, Modality::modal);
    } catch (const RuntimeError &) {
        app.platform.boxes.show("起動できません！", Icon::critical);
        app.platform.processes.end();
    }
}

} // namespace inin

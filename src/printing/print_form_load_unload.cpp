#include "data/connection_settings.h"
#include "printing/print_form.h"
#include "runtime/conversion.h"

#include <utility>

namespace inin {

void frmPrintInin::Form_Load()
{
    setDates();
    loadInitCorp(m_app, company);
    iLoadPrintSetting();
    // Deliberate double box: without a connection both the company preload and the screen report it. The screen then
    // opens with empty lists.
    if (!connectScreen()) return;
    if (setStuff() != iGood) {
        m_app.platform.boxes.show(csErrMsg, Icon::critical, "委任状印刷");
        unload();
        return;
    }
    // Deliberate double report: a failed session in nGetFutanKingaku has already shown its own box.
    if (nGetFutanKingaku() != iGood)
        m_app.platform.boxes.show("保険区分の取得に失敗しました。", Icon::critical, "初期設定");
}

/// Deliberate: the clock is read again for each box.
void frmPrintInin::setDates()
{
    Clock &clock = m_app.platform.clock;
    // Converts the text "year/month/day" in plain digits, as the date boxes do with the text that is assigned to them.
    const auto dayOfMonth = [this](Date month, int day) {
        return toDate(std::to_string(Year(month)) + "/" + std::to_string(Month(month)) + "/" + std::to_string(day),
                      m_app.regional);
    };
    imD_Out.Value = dayOfMonth(clock.now(), 1);
    const Date today = clock.now();
    imD_LastDay.Value = dayOfMonth(today, Day(today));
    imSetDateFrom.Value = dayOfMonth(clock.now(), 1);
    const Date month = clock.now();
    imSetDateTo.Value = lastDayOfMonth(Year(month), Month(month));
    imSyomei.Value = imSetDateFrom.Value;
}

/// Opens the screen's session. A session that could not connect stays in the field; the unload disconnects it as well.
bool frmPrintInin::connectScreen()
{
    StartedSession started = startSession(m_app, "Form_Load() でエラー");
    const bool isConnected = started.isConnected();
    session = std::move(started.session);
    return isConnected;
}

void frmPrintInin::Form_Unload(std::int16_t & /*Cancel*/)
{
    if (session) {
        static_cast<void>(session->iDisConnect()); // the process ends either way
        session.reset();
    }
    // The argument 2 is part of the protocol with the menu program: it marks a return from another program.
    m_app.platform.processes.start(m_app.gcsAppPath + "\\Main.exe 2", WindowStyle::normalFocus);
    m_app.platform.processes.end();
}

} // namespace inin

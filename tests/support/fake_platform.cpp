#include "support/fake_platform.h"

#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "suite_text/code_page_932.h"

#include <stdexcept>

namespace inin {

void FakeWindows::show(Form &form, Modality modality)
{
    form.load();
    // A form that its own load has unloaded is not shown.
    if (!form.isLoaded()) return;
    log.push_back("show " + form.name());
    form.Form_Resize();
    form.Form_Activate();
    if (modality == Modality::modeless) return;
    while (form.isLoaded()) {
        if (acts.empty()) throw std::logic_error(form.name() + " is still open and no act is left");
        const auto act = acts.front();
        acts.pop_front();
        act(form);
    }
    log.push_back("hide " + form.name());
}

void FakeWindows::closeByControlBox()
{
    acts.emplace_back([](Form &form) { static_cast<void>(form.unload(true)); });
}

void FakeWindows::checkPicture(const std::string &path)
{
    log.push_back("picture " + path);
    if (pictureError != 0) throw RuntimeError(pictureError);
}

void FakeProcesses::start(const std::string &commandLine, WindowStyle style)
{
    if (startError != 0) throw RuntimeError(startError);
    if (onStart) onStart();
    started.push_back(std::to_string(static_cast<int>(style)) + " " + commandLine);
}

std::optional<std::string> FakeProcesses::computerName(std::size_t capacity)
{
    if (name.size() + 1 > capacity) return std::nullopt;
    return name;
}

void FakeProcesses::end()
{
    ended = true;
    throw ProcessEnded{};
}

std::string FakeLocale::toCodePage(std::string_view utf8)
{
    return encodeCp932(utf8);
}

std::string FakeLocale::fromCodePage(std::string_view bytes)
{
    return decodeCp932(bytes);
}

Variant FakeAutomationObject::get(const std::string &member)
{
    m_log.push_back("get " + member);
    return {};
}

void FakeAutomationObject::set(const std::string &member, const Variant &value)
{
    m_log.push_back("set " + member + " " + toText(value, Regional{}));
}

Variant FakeAutomationObject::call(const std::string &member, std::span<const Variant> arguments)
{
    std::string line = "call " + member;
    for (const Variant &argument : arguments) line += " " + toText(argument, Regional{});
    m_log.push_back(line);
    return {};
}

std::unique_ptr<AutomationObject> FakeAutomation::create(const std::string &programId)
{
    if (!known) throw RuntimeError(error_number::automationCannotCreate);
    log.push_back("create " + programId);
    return std::make_unique<FakeAutomationObject>(log);
}

FakeWorld::FakeWorld()
{
    files.putText("C:\\SUITE\\Massage.ini",
                  "SYSTEM_SYS=\\SYS\nSYSTEM_TMP=\\TMP\nSYSTEM_ICON=\\ICON\nSYSTEM_DATA=\\DATA\n"
                  "WALLPAPER=wall.bmp\nBASEID=0102\n終了患者施術期間=3\n");
    files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=Provider=Fake;Data Source=demo\n");
    files.put("C:\\SUITE\\ICON\\wall.bmp", "BM");
    files.makeFolder("C:\\SUITE\\SYS");
    files.makeFolder("C:\\SUITE\\TMP");
    files.makeFolder("C:\\SUITE\\DATA");
    app.gcsAppPath = "C:\\SUITE";
    app.iKyotenCd = 1;
    app.iKyotenEb = 2;
}

std::string fromCp932(const std::string &bytes)
{
    return decodeCp932(bytes);
}

std::string toCp932(const std::string &utf8)
{
    return encodeCp932(utf8);
}

} // namespace inin

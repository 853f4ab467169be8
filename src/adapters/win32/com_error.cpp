#include "adapters/win32/com_error.h"

#include "runtime/runtime_error.h"
#include "system/win32_text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace inin::win32 {

namespace {

struct ComErrorRule {
    HRESULT result;
    std::int32_t number;
};
/// HRESULTs that have error numbers of the runtime.
constexpr ComErrorRule kComErrorRules[] = {
    {DISP_E_UNKNOWNNAME, error_number::noSuchMember},
    {DISP_E_MEMBERNOTFOUND, error_number::noSuchMember},
    {DISP_E_TYPEMISMATCH, error_number::typeMismatch},
    {DISP_E_BADPARAMCOUNT, error_number::wrongArgumentCount},
    {DISP_E_PARAMNOTOPTIONAL, error_number::argumentNotOptional},
    {DISP_E_OVERFLOW, error_number::overflow},
    {DISP_E_BADINDEX, error_number::subscript},
    {DISP_E_DIVBYZERO, error_number::divisionByZero},
    {E_NOTIMPL, error_number::unsupportedAction},
    {E_NOINTERFACE, error_number::noAutomation},
    {E_INVALIDARG, error_number::invalidCall},
    {E_OUTOFMEMORY, error_number::outOfMemory},
    {E_ACCESSDENIED, error_number::permissionDenied},
    {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), error_number::serverUnavailable},
    {REGDB_E_CLASSNOTREG, error_number::automationCannotCreate},
    {CO_E_SERVER_EXEC_FAILURE, error_number::automationCannotCreate},
};

bool isNumberOfTheRuntime(HRESULT result)
{
    return HRESULT_FACILITY(result) == FACILITY_CONTROL;
}

std::int32_t comErrorNumber(HRESULT result)
{
    if (isNumberOfTheRuntime(result)) return HRESULT_CODE(result);
    const auto *const rule = std::ranges::find(kComErrorRules, result, &ComErrorRule::result);
    return rule != std::end(kComErrorRules) ? rule->number : result;
}

/// The system's message for an HRESULT, without the trailing line end.
std::string systemSentence(HRESULT result)
{
    std::array<wchar_t, 1024> buffer{};
    constexpr DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    const DWORD size = FormatMessageW(flags, nullptr, static_cast<DWORD>(result), 0, buffer.data(),
                                      static_cast<DWORD>(buffer.size()), nullptr);
    const std::string sentence = utf8FromWide({buffer.data(), size});
    return sentence.substr(0, sentence.find_last_not_of("\r\n ") + 1);
}

/// The runtime's description of a number of its own; otherwise the system's message after its heading.
std::string comErrorText(std::int32_t number)
{
    if (number > 0) return runtimeDescription(number);
    const std::string heading = runtimeDescription(error_number::automationError);
    const std::string sentence = systemSentence(number);
    return sentence.empty() ? heading : heading + "\r\n" + sentence;
}

} // namespace

ComException::~ComException()
{
    for (BSTR text : {m_info.bstrSource, m_info.bstrDescription, m_info.bstrHelpFile}) SysFreeString(text);
}

void ComException::fail()
{
    if (m_info.pfnDeferredFillIn != nullptr) m_info.pfnDeferredFillIn(&m_info);
    const std::int32_t code = m_info.wCode != 0 ? m_info.wCode : comErrorNumber(m_info.scode);
    const std::int32_t number = code != 0 ? code : error_number::automationError;
    const std::string words = utf8FromWide({m_info.bstrDescription, SysStringLen(m_info.bstrDescription)});
    throw RuntimeError(number, words.empty() ? comErrorText(number) : words);
}

void failCom(HRESULT result)
{
    const std::int32_t number = comErrorNumber(result);
    throw RuntimeError(number, comErrorText(number));
}

} // namespace inin::win32

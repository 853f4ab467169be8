#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace inin {

/// A trappable error of the language runtime; the only exception that the logic throws on purpose. It is handled by the
/// operation that must trap it; an untrapped one ends the process (see UnhandledError).
class RuntimeError : public std::exception {
public:
    /// With the runtime's Japanese description of the number; unknown numbers have a general one.
    explicit RuntimeError(std::int32_t number);
    /// With the description of a provider or an automation object.
    RuntimeError(std::int32_t number, std::string description);

    [[nodiscard]] std::int32_t number() const noexcept { return m_number; }
    [[nodiscard]] const std::string &description() const noexcept { return m_description; }
    [[nodiscard]] const char *what() const noexcept override { return m_description.c_str(); }

private:
    std::int32_t m_number;
    std::string m_description;
};

/// Named error numbers of the runtime that the logic and the adapters raise.
namespace error_number {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t subscript = 9;
inline constexpr std::int32_t divisionByZero = 11;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t badFileName = 52;
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t fileAlreadyOpen = 55;
inline constexpr std::int32_t deviceIo = 57;
inline constexpr std::int32_t diskFull = 61;
inline constexpr std::int32_t endOfFile = 62;
inline constexpr std::int32_t tooManyFiles = 67;
inline constexpr std::int32_t permissionDenied = 70;
inline constexpr std::int32_t diskNotReady = 71;
inline constexpr std::int32_t pathAccess = 75;
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t invalidUseOfNull = 94;
inline constexpr std::int32_t invalidPropertyValue = 380;
inline constexpr std::int32_t automationCannotCreate = 429;
inline constexpr std::int32_t noAutomation = 430;
inline constexpr std::int32_t noSuchMember = 438;
inline constexpr std::int32_t automationError = 440;
inline constexpr std::int32_t unsupportedAction = 445;
inline constexpr std::int32_t argumentNotOptional = 449;
inline constexpr std::int32_t wrongArgumentCount = 450;
inline constexpr std::int32_t serverUnavailable = 462;
inline constexpr std::int32_t invalidPicture = 481;
inline constexpr std::int32_t noCurrentRecord = 3021;
inline constexpr std::int32_t noSuchField = 3265;
inline constexpr std::int32_t closedObject = 3704;
inline constexpr std::int32_t openObject = 3705;
} // namespace error_number

/// The runtime's Japanese description of a number, as an error box shows it.
[[nodiscard]] std::string runtimeDescription(std::int32_t number);

/// A RuntimeError that an event procedure did not trap: the process ends with a visible report and exit code 1. It is
/// not derived from RuntimeError, so that no operation further up traps it by mistake.
class UnhandledError {
public:
    explicit UnhandledError(RuntimeError error) : m_error(std::move(error)) {}
    [[nodiscard]] const RuntimeError &error() const noexcept { return m_error; }

private:
    RuntimeError m_error;
};

/// The boundary of an event procedure: turns a RuntimeError that leaves `procedure` into an UnhandledError.
template <class Procedure> void atEventEdge(Procedure &&procedure)
try {
    procedure();
} catch (const RuntimeError &error) {
    throw UnhandledError(error);
}

} // namespace inin

#pragma once

// Run-time failures: raised, never returned. Each carries the number by which people know it and a text from
// one table. What a caller does about one is a choice that shows at the call: `Ignoring`, `LoggedStep`
// (core/error_log.h), or nothing, in which case it travels up to the boundary around each command.

#include <QString>

#include <cstdint>
#include <exception>
#include <new>
#include <optional>
#include <utility>

namespace sheetwright {

// The failure numbers that the program raises itself.
namespace failure {
inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kOutOfStack = 28;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceError = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kTooManyFiles = 67;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kInvalidFormat = 321;
inline constexpr int kNoSuchElement = 340;
inline constexpr int kInvalidProperty = 380;
inline constexpr int kNoSuchProperty = 438;
inline constexpr int kKeyExists = 457;
inline constexpr int kInvalidPicture = 481;
inline constexpr int kPrinterError = 482;
inline constexpr int kCancelled = 32755;
}  // namespace failure

// Text of a failure number, such as "Type mismatch" for 13; "Application-defined error" for any number that
// the table lacks.
[[nodiscard]] QString FailureText(int number);

class Failure : public std::exception {
  public:
    explicit Failure(int number);
    Failure(int number, QString text);

    [[nodiscard]] int Number() const noexcept { return m_number; }
    [[nodiscard]] const QString& Text() const noexcept { return m_text; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

  private:
    int m_number;
    QString m_text;
    QByteArray m_what;
};

// Runs a step whose failure is of no interest: the walk goes on with the next statement. Returns what failed,
// for the few callers that look at it afterwards.
template <typename Step>
std::optional<Failure> Ignoring(Step&& step) {
    try {
        std::forward<Step>(step)();
    } catch (const Failure& caught) {
        return caught;
    }
    return std::nullopt;
}

// Runs a step that must end well or be told about: running out of memory counts as failure 7 here.
template <typename Step>
std::optional<Failure> Catching(Step&& step) {
    try {
        return Ignoring(std::forward<Step>(step));
    } catch (const std::bad_alloc&) {
        return Failure(failure::kOutOfMemory);
    }
}

// Checked narrowing to the 16-bit and 32-bit numbers of a form, halves rounded to even.
// Raises 6 (overflow) when the rounded number does not fit, also for a number that is not finite.
[[nodiscard]] std::int16_t ToInt16(double number);
[[nodiscard]] std::int32_t ToInt32(double number);

// Checked narrowing to single precision. Raises 6 beyond it, also for a number that is not finite.
[[nodiscard]] float ToSingle(double number);

// Raises 11 when `divisor` is 0.
[[nodiscard]] double Quotient(double dividend, double divisor);

}  // namespace sheetwright

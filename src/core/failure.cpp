#include "core/failure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace sheetwright {

namespace {

struct FailureName {
    int number;
    const char* text;
};

constexpr std::array kFailureNames{
    FailureName{failure::kInvalidCall, "Invalid procedure call or argument"},
    FailureName{failure::kOverflow, "Overflow"},
    FailureName{failure::kOutOfMemory, "Out of memory"},
    FailureName{failure::kSubscript, "Subscript out of range"},
    FailureName{failure::kDivisionByZero, "Division by zero"},
    FailureName{failure::kTypeMismatch, "Type mismatch"},
    FailureName{failure::kOutOfStack, "Out of stack space"},
    FailureName{failure::kBadFileName, "Bad file name or number"},
    FailureName{failure::kFileNotFound, "File not found"},
    FailureName{failure::kDeviceError, "Device I/O error"},
    FailureName{failure::kFileExists, "File already exists"},
    FailureName{failure::kDiskFull, "Disk full"},
    FailureName{failure::kInputPastEnd, "Input past end of file"},
    FailureName{failure::kTooManyFiles, "Too many files"},
    FailureName{failure::kPermissionDenied, "Permission denied"},
    FailureName{failure::kPathAccess, "Path/File access error"},
    FailureName{failure::kPathNotFound, "Path not found"},
    FailureName{failure::kObjectNotSet, "Object variable not set"},
    FailureName{failure::kInvalidFormat, "Invalid file format"},
    FailureName{failure::kNoSuchElement, "Control array element doesn't exist"},
    FailureName{failure::kInvalidProperty, "Invalid property value"},
    FailureName{failure::kNoSuchProperty, "Object doesn't support this property or method"},
    FailureName{failure::kKeyExists, "This key is already associated with an element of this collection"},
    FailureName{failure::kInvalidPicture, "Invalid picture"},
    FailureName{failure::kPrinterError, "Printer error"},
    FailureName{failure::kCancelled, "Cancel was selected"},
};

// Rounds halves to even whatever rounding mode the process is in, so that no library can change a verdict.
double RoundHalfToEven(double number) {
    const double below = std::floor(number);
    const double rest = number - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <typename Integer>
Integer Narrow(double number) {
    const double rounded = RoundHalfToEven(number);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw Failure(failure::kOverflow);
    return static_cast<Integer>(rounded);
}

}  // namespace

QString FailureText(int number) {
    const auto* found = std::find_if(kFailureNames.begin(), kFailureNames.end(),
                                     [number](const FailureName& name) { return name.number == number; });
    return QLatin1StringView(found == kFailureNames.end() ? "Application-defined error" : found->text);
}

Failure::Failure(int number) : Failure(number, FailureText(number)) {}

Failure::Failure(int number, QString text)
    : m_number(number),
      m_text(std::move(text)),
      m_what(QString::number(m_number).toUtf8() + ": " + m_text.toUtf8()) {}

std::int16_t ToInt16(double number) {
    return Narrow<std::int16_t>(number);
}

std::int32_t ToInt32(double number) {
    return Narrow<std::int32_t>(number);
}

float ToSingle(double number) {
    if (!(std::abs(number) <= double{std::numeric_limits<float>::max()})) throw Failure(failure::kOverflow);
    return static_cast<float>(number);
}

double Quotient(double dividend, double divisor) {
    if (divisor == 0) throw Failure(failure::kDivisionByZero);
    return dividend / divisor;
}

}  // namespace sheetwright

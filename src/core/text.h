#pragma once

// Text as it stands in files: the encoding of forms and tables, lines, and the small cuts at line level.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <vector>

namespace sheetwright {

// The code page of old files, by the name that QStringConverter knows.
inline constexpr const char* kCodePage = "windows-1252";

[[nodiscard]] bool IsAscii(QByteArrayView bytes);
[[nodiscard]] bool IsAscii(QStringView text);

// Bytes of a form or table as text: UTF-8 when they are valid UTF-8 holding at least one non-ASCII character
// (a byte-order mark counts and is dropped), otherwise the code page. Never fails: every byte means
// something.
[[nodiscard]] QString DecodeFileText(QByteArrayView bytes);

// The reverse: in the code page when every character fits and the result would not be read back as UTF-8,
// otherwise in UTF-8. So old files keep their bytes and no character is ever replaced.
[[nodiscard]] QByteArray EncodeFileText(QStringView text);

// Slices of `text` between line ends (CR LF, LF or a lone CR); no slice for what follows the last line end
// when that is empty.
[[nodiscard]] std::vector<QStringView> SplitLines(QStringView text);

// Takes the next line off the front of `rest` and returns it without its line end.
[[nodiscard]] QStringView TakeLine(QStringView& rest);

// `line` without its leading tab characters; other tabs stay.
[[nodiscard]] QStringView StripTabs(QStringView line);

// `text` without the blanks (U+0020 only) at both ends.
[[nodiscard]] QStringView TrimBlanks(QStringView text);

// Line breaks of a value as one character 127 each, as forms store them, and back to CR LF. Encoding replaces
// each CR and the character behind it; a lone LF, which would break the line in two, is replaced as well.
[[nodiscard]] QString EncodeLineBreaks(QStringView text);
[[nodiscard]] QString DecodeLineBreaks(QStringView text);

// Each CR LF, lone CR and lone LF as one CR LF, the only line break of a value in memory.
[[nodiscard]] QString WithPairedLineBreaks(QString text);

// What stands before and behind the first "=" of a line. Without one the name is "" and the value is "".
[[nodiscard]] QStringView KeyOf(QStringView line);
[[nodiscard]] QStringView ValueOf(QStringView line);

}  // namespace sheetwright

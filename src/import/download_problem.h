#pragma once

// Why a download has delivered nothing, in words for the person who waits for it.

#include <QString>
#include <QStringList>

namespace sheetwright {

class Application;
class DownloadRun;
struct DriverFile;
enum class RunEnd;

// Parameters of a text that is to be translated, whatever they hold.
[[nodiscard]] QString Parameters(const QStringList& values);

// Raises 321 with a translated text.
[[noreturn]] void RaiseProblem(const QString& text);

// Nothing for a program that has ended well; otherwise raises 321 or, for one that was cancelled, 32755.
void RaiseUnlessDone(const Application& application, const DriverFile& driver, const DownloadRun& run,
                     RunEnd end);

}  // namespace sheetwright

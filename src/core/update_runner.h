#pragma once

// The update runner: an optional separate program beside the executable that puts an update in place before
// the program comes up.

#include <functional>

namespace sheetwright {

class Application;

// Starts the update runner "RunOnce.exe" or "RunOnce" of the install folder, if there is one, and waits until
// it has ended, 60 seconds at most, pumping messages. Failures are not reported. `waitOneSecond` does each
// wait.
void RunUpdateRunner(Application& application);
void RunUpdateRunner(Application& application, const std::function<void()>& waitOneSecond);

// Waits for one second, then asks once a second whether the runner still runs, until it doesn't or 60 seconds
// have passed.
void WaitForRunner(const std::function<bool()>& isRunning, const std::function<void()>& waitOneSecond);

}  // namespace sheetwright

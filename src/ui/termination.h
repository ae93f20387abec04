#pragma once

namespace sheetwright {

// From now on the system's request to end the program (SIGTERM, SIGINT, SIGHUP) closes its windows as a
// person would: a changed form is asked about. A request that the process was started to ignore stays
// ignored. Once for each process, after the application is made.
void CloseOnTermination();

}  // namespace sheetwright

#pragma once

// The drivers that come with the program, in an installation that a person may not write into: they are
// copied to where tables can be downloaded.

namespace sheetwright {

class Application;

// Brings the shipped drivers into the writable folder. One that isn't there is copied whole; of one that is
// there DRIVER.INF, the icon and the file of column types become the shipped ones when those have a higher
// version, and everything else stays. Nothing where the program lies in the writable folder itself, or the
// settings name another one. What fails is left for the next time.
void BringShippedDrivers(const Application& application);

}  // namespace sheetwright

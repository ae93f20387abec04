#pragma once

// The line to the instrument: a TCP connection or a serial port.

#include "apps/line_reader/reader_config.h"

#include <QString>

#include <functional>

namespace sheetwright {

class Transmission;

// Connects, sends what the configuration says and receives until the transmission is over. Waits in calls
// that the system's request to end the program breaks off at once. Raises 57 for what goes wrong on the line,
// with the reason, and what the transmission raises.
void ReceiveFromInstrument(const ConnectionConfig& config, Transmission& transmission,
                           const std::function<void(const QString&)>& tell);

}  // namespace sheetwright

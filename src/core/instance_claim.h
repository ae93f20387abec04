#pragma once

// What tells a program at its start that it runs already.

#include <QString>

#include <memory>

class QLockFile;

namespace sheetwright {

// A claim on being the only instance of a program for this user on the channel that the environment variable
// SHEETWRIGHT_CHANNEL names. It ends with the object or the process, however that ends.
class InstanceClaim {
  public:
    InstanceClaim();
    InstanceClaim(const InstanceClaim&) = delete;
    InstanceClaim& operator=(const InstanceClaim&) = delete;
    ~InstanceClaim();

    // False when another process, or another claim of this one, holds the claim for `program`. Where no claim
    // can be written down at all, everybody gets it.
    [[nodiscard]] bool Take(const QString& program);

  private:
    std::unique_ptr<QLockFile> m_lock;
};

}  // namespace sheetwright

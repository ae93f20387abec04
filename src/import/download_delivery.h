#pragma once

// From what a driver's program has written to a table in the driver's data folder: looked at first, put in
// place whole.

#include <QByteArray>
#include <QString>

#include <optional>

namespace sheetwright {

class Application;
struct DriverFile;

// The driver's file of column types; none for a driver without. Raises 321, with a text for the person, when
// the driver lacks it or it can't be read.
[[nodiscard]] std::optional<QByteArray> TypesOf(const Application& application, const DriverFile& driver);

// The bytes of the table at `path`. Raises 321, with a text for the person, when it is no plain file, can't
// be read as a table or is not what the driver promises.
[[nodiscard]] QByteArray CheckedTable(const Application& application, const DriverFile& driver,
                                      const QString& path);

// Puts a table and its companion with the types into `folder` (with trailing separator), which is made when
// it isn't there. They are called `name` (without extension), with a number when that is taken; nothing is
// ever replaced, and no table is seen without its types. Returns the table's full path. Raises 76, 75, 58 and
// what writing raises; then nothing is left behind.
[[nodiscard]] QString PutIntoFolder(const QByteArray& table, const std::optional<QByteArray>& types,
                                    const QString& folder, const QString& name);

}  // namespace sheetwright

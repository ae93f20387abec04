#pragma once

// What a driver's DRIVER.INF says: the driver's name and icon, the program that fetches what the instrument
// holds, and when that counts as delivered. Its form is in docs/drivers.md.

#include <QString>
#include <QStringList>

namespace sheetwright {

struct DriverFile {
    static constexpr int kDefaultTimeLimit = 300;

    QString folder;   // the driver's, with trailing separator
    QString name;     // that of the folder: pages know the driver by it
    QString caption;  // what people call the driver; the name where the file doesn't say
    QString icon;     // full path of a file in the driver's folder; "" for none
    int version = 0;

    QString program;                    // as written; "" for a driver whose files come by other means
    QStringList arguments;              // with "{output}" and others not yet filled in
    int timeLimit = kDefaultTimeLimit;  // seconds

    // What counts as delivered.
    QStringList columns;     // that the table must have
    int minimumRecords = 1;  // that it must hold
    QString types;           // file of the driver's folder that tells the columns' types; "" for none
};

// Reads the DRIVER.INF in `folder`. What is missing or makes no sense in it has its default.
[[nodiscard]] DriverFile ReadDriverFile(const QString& folder);

}  // namespace sheetwright

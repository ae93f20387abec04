// Any bytes make a table, and any bytes its companion. Whatever is done to it, saving and opening it again
// gives the same values. One save for each input: flushing to the disk is what takes the time.

#include "core/failure.h"
#include "import/csv_table.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace sheetwright;

namespace {

constexpr int kShownColumns = 50;
constexpr int kShownRecords = 200;

void Require(bool holds) {
    if (!holds) std::abort();
}

std::vector<QStringList> RowsOf(CsvTable& table) {
    std::vector<QStringList> rows;
    const int columns = std::min(table.Columns().Count(), kShownColumns);
    for (table.MoveFirst(); !table.AtEnd() && table.Position() <= kShownRecords; table.MoveNext()) {
        QStringList row;
        for (int number = 1; number <= columns; ++number)
            row << table.Columns().At(number).Value();
        rows.push_back(row);
    }
    return rows;
}

void RequireSameAfterSave(CsvTable& table) {
    table.Save();
    CsvTable again;
    again.SetFileName(table.FileName());
    Require(again.Columns().Count() == table.Columns().Count());
    Require(again.RecordCount() == table.RecordCount());
    Require(RowsOf(again) == RowsOf(table));
}

void Change(CsvTable& table) {
    const QString name = table.Columns().At(1).Name();
    Ignoring([&] { table.Sort(name); });
    Ignoring([&] { table.Find(name + QStringLiteral("=1")); });
    table.AddRecord();
    table.Columns().At(1).SetValue(QStringLiteral("\u03A9 \"x\",\r\n"));
    table.Update();
    Ignoring([&] { table.Columns().Add(QStringLiteral("Added")).SetValue(QStringLiteral("\u00E4")); });
    table.Update();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString path = folder.filePath(QStringLiteral("table.csv"));
    for (const QString& name : {path, folder.filePath(QStringLiteral("table.inf"))}) {
        QFile file(name);
        Require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    CsvTable table;
    table.SetFileName(path);
    static_cast<void>(RowsOf(table));
    if (table.Columns().Count() == 0) return 0;
    Change(table);
    RequireSameAfterSave(table);
    return 0;
}

// A dictionary made of the input translates texts of its own and others: nothing but failure 9, a file
// without a second column, may come of it.

#include "core/failure.h"
#include "import/csv_table.h"
#include "translate/dictionary.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>
#include <tuple>

namespace {

using sheetwright::CsvTable;
using sheetwright::Dictionary;
using sheetwright::Failure;
using sheetwright::Ignoring;

constexpr int kEntriesTried = 20;

void Translate(const Dictionary& dictionary, const QString& text, const QString& parameters) {
    const auto caught = Ignoring([&] { std::ignore = dictionary.Translate(text, parameters); });
    if (caught && caught->Number() != sheetwright::failure::kSubscript) std::abort();
}

void TranslateOwnEntries(const Dictionary& dictionary, const QString& path) {
    CsvTable table;
    table.SetFileName(path);
    if (table.Columns().Count() == 0) return;
    const auto& first = table.Columns().At(1);
    for (int entry = 0; entry < kEntriesTried && !table.AtEnd(); ++entry, table.MoveNext())
        Translate(dictionary, first.Value(), QStringLiteral("a\u00A6b"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder;
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const QString path = folder.filePath(QStringLiteral("x.DIC"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), bytes.size()) != bytes.size()) return 0;
    file.close();

    Dictionary dictionary;
    dictionary.Load(path);
    TranslateOwnEntries(dictionary, path);
    const QString text = QString::fromUtf8(bytes);
    Translate(dictionary, text, text);
    Translate(dictionary, QStringLiteral("Ready"), text);
    Translate(Dictionary(), QStringLiteral("%1%2%9%0%") + text, text);
    return 0;
}

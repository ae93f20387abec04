// Opening, walking and sorting tables of 1, 10 and 100 MB. Time per byte and memory per byte must stay the
// same.

#include "import/csv_table.h"
#include "peak_memory.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <random>

namespace sheetwright {
namespace {

constexpr std::int64_t kMegabyte = 1 << 20;

enum class Content : std::uint8_t { Plain, Quoted, CodePage };

QByteArray RowOf(Content content, std::mt19937& random) {
    const QByteArray key = QByteArray::number(random() % 1000000);
    switch (content) {
        case Content::Quoted:
            return "\"Customer " + key + "\",\"12, Long \"\"Old\"\" Road\",\"20240229\",\"-1\",\"" + key +
                   "\"\r\n";
        case Content::CodePage:
            return "M\xFCller " + key +
                   ",Stra\xDF"
                   "e 12,20240229,-1," +
                   key + "\r\n";
        default:
            return "Customer " + key + ",12 Long Road,20240229,-1," + key + "\r\n";
    }
}

class TableFile {
  public:
    TableFile(Content content, std::int64_t megabytes)
        : m_path(m_folder.filePath(QStringLiteral("table.csv"))) {
        QFile types(m_folder.filePath(QStringLiteral("table.inf")));
        QFile file(m_path);
        if (!types.open(QIODevice::WriteOnly) || !file.open(QIODevice::WriteOnly)) return;
        types.write("[Number]\r\nDataType=NUMBER\r\n");
        file.write("Name,Street,Date,Member,Number\r\n");
        std::mt19937 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same table every time
        while (file.pos() < megabytes * kMegabyte)
            file.write(RowOf(content, random));
    }
    [[nodiscard]] const QString& Path() const { return m_path; }
    [[nodiscard]] std::int64_t Size() const { return QFile(m_path).size(); }

  private:
    QTemporaryDir m_folder;
    QString m_path;
};

template <typename Step>
void Measure(benchmark::State& state, Content content, Step step) {
    const TableFile file(content, state.range(0));
    ResetPeakMemory();
    const double before = MemoryOf("VmRSS:");
    for (auto _ : state)
        step(file);
    const auto size = static_cast<double>(file.Size());
    state.SetBytesProcessed(state.iterations() * file.Size());
    state.counters["peak_per_file_byte"] = (MemoryOf("VmHWM:") - before) / size;
}

void Open(benchmark::State& state, Content content) {
    Measure(state, content, [](const TableFile& file) {
        CsvTable table;
        table.SetFileName(file.Path());
        benchmark::DoNotOptimize(table.RecordCount());
    });
}

void OpenAndReadAll(benchmark::State& state, Content content) {
    Measure(state, content, [](const TableFile& file) {
        CsvTable table;
        table.SetFileName(file.Path());
        for (; !table.AtEnd(); table.MoveNext())
            for (int number = 1; number <= table.Columns().Count(); ++number)
                benchmark::DoNotOptimize(table.Columns().At(number).Value());
    });
}

void OpenAndSort(benchmark::State& state, const QString& columns) {
    Measure(state, Content::Plain, [&](const TableFile& file) {
        CsvTable table;
        table.SetFileName(file.Path());
        table.Sort(columns);
        benchmark::DoNotOptimize(table.Position());
    });
}

void Find(benchmark::State& state) {
    const TableFile file(Content::Plain, state.range(0));
    CsvTable table;
    table.SetFileName(file.Path());
    for (auto _ : state)
        benchmark::DoNotOptimize(table.Find(QStringLiteral("Number=none,Date=20240229")));
    state.SetBytesProcessed(state.iterations() * file.Size());
}

void AddAndSave(benchmark::State& state) {
    const TableFile file(Content::Plain, state.range(0));
    for (auto _ : state) {
        CsvTable table;
        table.SetFileName(file.Path());
        table.AddRecord();
        table.Save();
    }
    state.SetBytesProcessed(state.iterations() * file.Size());
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgName("MB")->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK_CAPTURE(Open, plain, Content::Plain)->Apply(Sizes);
BENCHMARK_CAPTURE(Open, quoted, Content::Quoted)->Apply(Sizes);
BENCHMARK_CAPTURE(Open, codepage, Content::CodePage)->Apply(Sizes);
BENCHMARK_CAPTURE(OpenAndReadAll, plain, Content::Plain)->Apply(Sizes);
BENCHMARK_CAPTURE(OpenAndReadAll, quoted, Content::Quoted)->Apply(Sizes);
BENCHMARK_CAPTURE(OpenAndReadAll, codepage, Content::CodePage)->Apply(Sizes);
BENCHMARK_CAPTURE(OpenAndSort, text, QStringLiteral("Name"))->Apply(Sizes);
BENCHMARK_CAPTURE(OpenAndSort, number, QStringLiteral("Number"))->Apply(Sizes);
BENCHMARK_CAPTURE(OpenAndSort, three_keys, QStringLiteral("Date,Name,Number"))->Apply(Sizes);
BENCHMARK(Find)->Apply(Sizes);
BENCHMARK(AddAndSave)->Apply(Sizes);

}  // namespace
}  // namespace sheetwright

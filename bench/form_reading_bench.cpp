// Opening and saving forms of 100, 1,000 and 10,000 pages of 200 fields: about 0.5, 5 and 50 MB of text. Time
// and memory must grow with the form in a straight line; unpacking the same archive with "unzip" is the
// yardstick.

#include "core/application.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "document/form_archive.h"
#include "document/form_reader.h"
#include "document/form_writer.h"
#include "peak_memory.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>

namespace sheetwright {
namespace {

constexpr int kFields = 200;

QByteArray DesignText() {
    QByteArray text = "VERSION 1.0.0\r\nBEGIN DESIGN\r\n\tBEGIN PAGE 1\r\n\t\tTitle=Sheet\r\n";
    for (int field = 1; field <= kFields; ++field)
        text += "\t\tBEGIN FIELD\r\n\t\t\tName=Field" + QByteArray::number(field) + "\r\n\t\tEND FIELD\r\n";
    return text + "\tEND PAGE\r\nEND DESIGN\r\n";
}

QByteArray FormTextOf(std::int64_t pages) {
    QByteArray text = DesignText() + "BEGIN DATA\r\n";
    for (std::int64_t page = 1; page <= pages; ++page) {
        text += "\tBEGIN PAGE " + QByteArray::number(page) + " DESIGN=1\r\n";
        for (int field = 1; field <= kFields; ++field)
            text += "\t\tField" + QByteArray::number(field) + "=value " + QByteArray::number(page * field) +
                    "\r\n";
        text += "\tEND PAGE\r\n";
    }
    return text + "END DATA\r\n";
}

// A form of that many pages, packed by the engine, and the application that works on it.
class PackedForm {
  public:
    explicit PackedForm(std::int64_t pages)
        : m_application(QStringLiteral("Sheetwright"), m_folder.path(), Settings(m_folder.path()), m_ui),
          m_path(m_folder.filePath(QStringLiteral("form.aff"))) {
        const QByteArray text = FormTextOf(pages);
        m_textSize = text.size();
        const QString folder = NewFolder(QStringLiteral("packing"));
        QFile file(folder + QStringLiteral("form.aff"));
        if (!file.open(QIODevice::WriteOnly)) return;
        file.write(text);
        file.close();
        m_isPacked = ZipForm(m_application, m_path, folder);
    }

    [[nodiscard]] bool IsPacked() const { return m_isPacked; }
    [[nodiscard]] const QString& Path() const { return m_path; }
    [[nodiscard]] std::int64_t TextSize() const { return m_textSize; }

    [[nodiscard]] std::unique_ptr<frmSheetwright> Open() {
        auto document = std::make_unique<frmSheetwright>(m_application);
        document->Tag = m_path;
        document->MyTempDir = NewFolder(QStringLiteral("TEMP/opened"));
        UnZipForm(m_application, m_path, document->MyTempDir);
        ReadFormFile(*document);
        return document;
    }

  private:
    [[nodiscard]] QString NewFolder(const QString& name) const {
        const QString folder = m_folder.filePath(name);
        QDir().mkpath(folder);
        return folder + u'/';
    }

    QTemporaryDir m_folder;
    SilentUserInterface m_ui;
    Application m_application;
    QString m_path;
    std::int64_t m_textSize = 0;
    bool m_isPacked = false;
};

void OpenForm(benchmark::State& state) {
    PackedForm form(state.range(0));
    if (!form.IsPacked()) return state.SkipWithError("the form could not be packed");
    ResetPeakMemory();
    const double before = MemoryOf("VmRSS:");
    for (auto _ : state)
        benchmark::DoNotOptimize(form.Open()->Pages);
    state.SetBytesProcessed(state.iterations() * form.TextSize());
    state.counters["peak_per_text_byte"] =
        (MemoryOf("VmHWM:") - before) / static_cast<double>(form.TextSize());
}

void SaveWholeForm(benchmark::State& state) {
    PackedForm form(state.range(0));
    if (!form.IsPacked()) return state.SkipWithError("the form could not be packed");
    const std::unique_ptr<frmSheetwright> document = form.Open();
    for (auto _ : state) {
        if (!SaveForm(*document, Recalculate::No)) return state.SkipWithError("the form could not be saved");
    }
    state.SetBytesProcessed(state.iterations() * form.TextSize());
}

void UnzipYardstick(benchmark::State& state) {
    const PackedForm form(state.range(0));
    for (auto _ : state) {
        QProcess unzip;
        unzip.setStandardOutputFile(QProcess::nullDevice());
        unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), form.Path()});
        if (!unzip.waitForFinished(-1) || unzip.exitCode() != 0)
            return state.SkipWithError("\"unzip\" could not be run");
    }
    state.SetBytesProcessed(state.iterations() * form.TextSize());
}

// The value of one field on each page, as a sum over all pages of a design looks it up.
void FindFieldOnEveryPage(benchmark::State& state) {
    PackedForm form(state.range(0));
    const std::unique_ptr<frmSheetwright> document = form.Open();
    const MemoryBlock& memory = document->memory;
    for (auto _ : state)
        for (const std::int16_t page : memory.PagesOf(1))
            benchmark::DoNotOptimize(memory.DataPage(page).Find(u"Field150"));
    state.SetItemsProcessed(state.iterations() * document->Pages);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgName("pages")->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(OpenForm)->Apply(Sizes);
BENCHMARK(UnzipYardstick)->Apply(Sizes);
BENCHMARK(SaveWholeForm)->Apply(Sizes);
BENCHMARK(FindFieldOnEveryPage)->Apply(Sizes);

}  // namespace
}  // namespace sheetwright

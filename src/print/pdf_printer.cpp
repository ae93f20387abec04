#include "print/pdf_printer.h"

#include "core/application.h"
#include "core/atomic_file.h"
#include "core/failure.h"
#include "core/paths.h"
#include "print/fonts.h"
#include "print/item_painter.h"
#include "print/paper_table.h"
#include "print/units.h"

#include <QFileInfo>
#include <QIODevice>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <optional>

namespace sheetwright {

namespace {

using orientation::kLandscape;
using orientation::kPortrait;

constexpr std::int16_t kA4 = 9;
constexpr PaperExtent kA4Portrait{11906, 16838};

// A device to write on that forgets no failure: the PDF writer itself looks at none.
class CheckedDevice : public QIODevice {
  public:
    explicit CheckedDevice(const NewFile& file) : m_file(file) { open(QIODevice::WriteOnly); }

    [[nodiscard]] bool isSequential() const override { return true; }

    // Raises the first failure that there was.
    void Flush() {
        WriteHeldBack();
        if (m_error != 0) throw Failure(FailureNumberOfErrno(m_error));
    }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override {
        m_heldBack.append(data, size);
        if (m_heldBack.size() >= kHeldBack) WriteHeldBack();
        return size;
    }

  private:
    static constexpr qsizetype kHeldBack = 65'536;

    void WriteHeldBack() {
        if (m_error == 0) m_error = m_file.TryWrite(m_heldBack);
        m_heldBack.clear();
    }

    const NewFile& m_file;
    QByteArray m_heldBack;
    int m_error = 0;
};

void RequireReplaceable(const QString& path) {
    const QFileInfo old(OnDisk(path));
    if (old.exists() && !old.permission(QFile::WriteOwner)) throw Failure(failure::kPathAccess);
}

// A paper of which the table has only the other orientation is turned.
std::optional<PaperExtent> ExtentOf(Application& application, std::int16_t code, std::int16_t orientation) {
    if (const auto extent = FindPaper(application, code, orientation)) return extent;
    const auto turned = FindPaper(application, code, orientation == kPortrait ? kLandscape : kPortrait);
    return turned ? std::optional(PaperExtent{turned->height, turned->width}) : std::nullopt;
}

// Sizes come turned already, so that the layout itself always stands upright.
QPageLayout LayoutOf(PaperExtent extent) {
    const QSizeF points(extent.width / kTwipsPerPoint, extent.height / kTwipsPerPoint);
    QPageLayout layout(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch),
                       QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

}  // namespace

struct PdfPrinter::Job {
    Job(Application& owner, const QString& path)
        : application(owner),
          file(path, kUnfinishedSuffix.toString()),
          device(file.Beside()),
          writer(&device) {}

    void BeginPage();
    void Close();

    Application& application;
    AtomicFile file;
    CheckedDevice device;
    QPdfWriter writer;
    QPainter painter;
    std::optional<ItemPainter> items;

    std::int16_t orientation = kPortrait;
    std::int16_t paper = kA4;
    PaperExtent extent = kA4Portrait;
    int pages = 0;
    bool isPageOpen = false;
    bool isClosed = false;
    bool isComplete = false;  // every byte of it is on the disk
};

void PdfPrinter::Job::BeginPage() {
    if (isPageOpen) return;
    if (isClosed) throw Failure(failure::kPrinterError);
    writer.setPageLayout(LayoutOf(extent));
    const bool isReady = painter.isActive() ? writer.newPage() : painter.begin(&writer);
    if (!isReady) throw Failure(failure::kDeviceError);
    if (!items) items.emplace(painter, FontsOf(application), 1.0, ItemPainter::Surface::Vector);
    isPageOpen = true;
    ++pages;
}

void PdfPrinter::Job::Close() {
    isPageOpen = false;
    isClosed = true;
    if (items) items->Flush();
    items.reset();
    if (painter.isActive() && !painter.end()) throw Failure(failure::kDeviceError);
    device.Flush();
    file.Beside().Flush();
    isComplete = true;
}

PdfPrinter::PdfPrinter(Application& application, const QString& path, const QString& title)
    : Printer(FontsOf(application)),
      m_job((RequireReplaceable(path), std::make_unique<Job>(application, path))) {
    m_job->writer.setResolution(static_cast<int>(kTwipsPerInch));
    m_job->writer.setTitle(title);
    m_job->writer.setCreator(QStringLiteral("Sheetwright"));
    m_job->extent = ExtentOf(application, kA4, kPortrait).value_or(kA4Portrait);
}

PdfPrinter::~PdfPrinter() = default;

int PdfPrinter::Complete() {
    if (!m_job->isClosed) m_job->Close();
    if (!m_job->isComplete) throw Failure(failure::kDeviceError);
    return m_job->pages;
}

int PdfPrinter::Finish() {
    if (Complete() > 0) m_job->file.Replace();
    return m_job->pages;
}

int PdfPrinter::PageCount() const {
    return m_job->pages;
}

double PdfPrinter::Width() const {
    return m_job->extent.width;
}

double PdfPrinter::Height() const {
    return m_job->extent.height;
}

void PdfPrinter::EndDoc() {
    if (m_job->items) m_job->items->Flush();
    m_job->isPageOpen = false;
}

std::int16_t PdfPrinter::Orientation() const {
    return m_job->orientation;
}

void PdfPrinter::SetOrientation(std::int16_t orientation) {
    if (orientation != kPortrait && orientation != kLandscape) throw Failure(failure::kInvalidProperty);
    const PaperExtent turned{m_job->extent.height, m_job->extent.width};
    const PaperExtent plain = orientation == m_job->orientation ? m_job->extent : turned;
    m_job->extent = ExtentOf(m_job->application, m_job->paper, orientation).value_or(plain);
    m_job->orientation = orientation;
}

std::int16_t PdfPrinter::PaperSize() const {
    return m_job->paper;
}

void PdfPrinter::SetPaperSize(std::int16_t code) {
    const auto extent = ExtentOf(m_job->application, code, m_job->orientation);
    if (!extent) throw Failure(failure::kInvalidProperty);
    m_job->extent = *extent;
    m_job->paper = code;
}

QString PdfPrinter::DriverName() const {
    return QStringLiteral("Sheetwright PDF");
}

void PdfPrinter::Draw(DrawnItem item) {
    m_job->BeginPage();
    m_job->items->Paint(item);
}

void PdfPrinter::Touch() {
    m_job->BeginPage();
}

OnlyPrinter::OnlyPrinter(Application& application, class Printer& printer)
    : m_application(application), m_printer(printer), m_before(application.printing.printers) {
    m_application.printing.printers = this;
}

OnlyPrinter::~OnlyPrinter() {
    m_application.printing.printers = m_before;
}

}  // namespace sheetwright

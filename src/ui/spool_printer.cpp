#include "ui/spool_printer.h"

#include "core/application.h"
#include "core/failure.h"
#include "print/fonts.h"
#include "print/item_painter.h"
#include "print/paper_table.h"
#include "print/units.h"

#include <QLibrary>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace sheetwright {

namespace {

using orientation::kLandscape;
using orientation::kPortrait;

// Whether the spooler took the job that was handed to it last. Qt hands jobs over and doesn't look; CUPS,
// which the print plug-in has loaded, remembers for each thread how its last request ended. Other spoolers
// report through the painter.
bool HasSpoolerRefused() {
    constexpr int kFirstError = 0x0400;
    constexpr int kCupsVersion = 2;
    QLibrary cups(QStringLiteral("cups"), kCupsVersion);
    const auto lastError = reinterpret_cast<int (*)()>(cups.resolve("cupsLastError"));
    return lastError != nullptr && lastError() >= kFirstError;
}

// The size of a paper code, standing upright; none for a code that nobody knows.
std::optional<QPageSize> PaperOf(Application& application, std::int16_t code) {
    if (const QPageSize::PageSizeId id = QPageSize::id(code); id != QPageSize::Custom) return QPageSize(id);
    const std::optional<PaperExtent> extent = FindPaper(application, code, kPortrait);
    if (!extent) return std::nullopt;
    const QSizeF points(extent->width / kTwipsPerPoint, extent->height / kTwipsPerPoint);
    return QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch);
}

// In the units that define it, since others come rounded.
QSizeF TwipsOf(const QPageSize& paper) {
    constexpr double kMillimetresPerInch = 25.4;
    const QPageSize::Unit units = paper.definitionUnits();
    const bool isMetric = units == QPageSize::Millimeter;
    const bool isImperial = units == QPageSize::Inch;
    const QSizeF size = isMetric || isImperial ? paper.definitionSize() : paper.size(QPageSize::Point);
    const double twips = isMetric     ? kTwipsPerInch / kMillimetresPerInch
                         : isImperial ? kTwipsPerInch
                                      : kTwipsPerPoint;
    return {std::round(size.width() * twips), std::round(size.height() * twips)};
}

bool Takes(const QPrinterInfo& queue, const QPageSize& paper) {
    const QList<QPageSize> papers = queue.supportedPageSizes();
    return papers.isEmpty() || queue.supportsCustomPageSizes() ||
           std::ranges::any_of(papers, [&](const QPageSize& known) { return known.isEquivalentTo(paper); });
}

}  // namespace

struct SpoolPrinter::Job {
    Job(Application& owner, const QString& queue, std::function<QString()> name)
        : application(owner), documentName(std::move(name)), printer(QPrinter::HighResolution) {
        Follow(queue);
    }

    void Follow(const QString& queue);
    void UseQueue();
    void Begin();
    [[nodiscard]] QString Name() const;

    Application& application;
    std::function<QString()> documentName;
    QPrinter printer;
    QPrinterInfo info;        // of the queue that the next document goes to
    bool isQueueNew = false;  // the printer doesn't use it yet
    QPageSize paperSize;
    std::int16_t paper = 0;
    std::int16_t orientation = kPortrait;
    QPainter painter;
    std::optional<ItemPainter> items;
};

void SpoolPrinter::Job::Follow(const QString& queue) {
    info = QPrinterInfo::printerInfo(queue);
    isQueueNew = true;
    const QPageSize usual = info.defaultPageSize();
    paperSize = usual.isValid() ? usual : QPageSize(QPageSize::A4);
    paper = static_cast<std::int16_t>(paperSize.windowsId());
    orientation = kPortrait;
    if (!painter.isActive()) UseQueue();
}

// Not while a document is open, which belongs to the queue that it began for.
void SpoolPrinter::Job::UseQueue() {
    if (!std::exchange(isQueueNew, false)) return;
    printer.setPrinterName(info.printerName());
    // Where there is no driver to ask, it is not for the program to take the colours away.
    if (!info.supportedColorModes().contains(QPrinter::Color)) printer.setColorMode(QPrinter::Color);
}

QString SpoolPrinter::Job::Name() const {
    const QString name = documentName ? documentName() : QString();
    return name.isEmpty() ? application.Title : name;
}

// A document opens with the paper and orientation that hold now; a printer dialog may have set others.
void SpoolPrinter::Job::Begin() {
    if (painter.isActive()) return;
    UseQueue();
    printer.setDocName(Name());
    const bool isLandscape = orientation == kLandscape;
    printer.setPageLayout(
        QPageLayout(paperSize, isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()));
    printer.setFullPage(true);
    if (!info.isNull() && painter.begin(&printer)) {
        items.emplace(painter, FontsOf(application), printer.resolution() / kTwipsPerInch,
                      ItemPainter::Surface::Vector);
        return;
    }
    throw Failure(failure::kPrinterError);
}

SpoolPrinter::SpoolPrinter(Application& application, const QString& queue,
                           std::function<QString()> documentName)
    : Printer(FontsOf(application)),
      m_job(std::make_unique<Job>(application, queue, std::move(documentName))) {}

SpoolPrinter::~SpoolPrinter() = default;

void SpoolPrinter::SetQueue(const QString& queue) {
    if (queue != Queue()) m_job->Follow(queue);
}

QString SpoolPrinter::Queue() const {
    return m_job->info.printerName();
}

QPrinter& SpoolPrinter::Spool() {
    return m_job->printer;
}

double SpoolPrinter::Width() const {
    const QSizeF upright = TwipsOf(m_job->paperSize);
    return m_job->orientation == kPortrait ? upright.width() : upright.height();
}

double SpoolPrinter::Height() const {
    const QSizeF upright = TwipsOf(m_job->paperSize);
    return m_job->orientation == kPortrait ? upright.height() : upright.width();
}

double SpoolPrinter::TwipsPerPixelX() const {
    return kTwipsPerInch / m_job->printer.resolution();
}

double SpoolPrinter::TwipsPerPixelY() const {
    return kTwipsPerInch / m_job->printer.resolution();
}

void SpoolPrinter::EndDoc() {
    if (!m_job->painter.isActive()) return;
    m_job->items->Flush();
    m_job->items.reset();
    const bool isSent = m_job->painter.end() && m_job->printer.printerState() != QPrinter::Error;
    if (!isSent || HasSpoolerRefused()) throw Failure(failure::kPrinterError);
}

std::int16_t SpoolPrinter::Orientation() const {
    return m_job->orientation;
}

void SpoolPrinter::SetOrientation(std::int16_t orientation) {
    if (orientation != kPortrait && orientation != kLandscape) throw Failure(failure::kInvalidProperty);
    m_job->orientation = orientation;
}

std::int16_t SpoolPrinter::PaperSize() const {
    return m_job->paper;
}

void SpoolPrinter::SetPaperSize(std::int16_t code) {
    if (code == m_job->paper) return;
    const std::optional<QPageSize> size = PaperOf(m_job->application, code);
    if (!size || !Takes(m_job->info, *size)) throw Failure(failure::kInvalidProperty);
    m_job->paperSize = *size;
    m_job->paper = code;
}

QString SpoolPrinter::DriverName() const {
    const QString model = m_job->info.makeAndModel();
    return model.isEmpty() ? Queue() : model;
}

void SpoolPrinter::Draw(DrawnItem item) {
    m_job->Begin();
    m_job->items->Paint(item);
}

void SpoolPrinter::Touch() {
    m_job->Begin();
}

SpoolPrinters::SpoolPrinters(Application& application, std::function<QString()> documentName)
    : m_application(application),
      m_documentName(std::move(documentName)),
      m_queues(QPrinterInfo::availablePrinterNames()) {}

SpoolPrinters::~SpoolPrinters() = default;

QString SpoolPrinters::DefaultQueue() const {
    if (m_queues.contains(m_chosen)) return m_chosen;
    const QString usual = QPrinterInfo::defaultPrinterName();
    return m_queues.contains(usual) ? usual : m_queues.value(0);
}

SpoolPrinter& SpoolPrinters::Spooled() {
    if (m_queues.isEmpty()) throw Failure(failure::kPrinterError);
    if (!m_printer) m_printer = std::make_unique<SpoolPrinter>(m_application, DefaultQueue(), m_documentName);
    return *m_printer;
}

void SpoolPrinters::FollowDefault() {
    m_queues = QPrinterInfo::availablePrinterNames();
    if (!m_queues.isEmpty()) Spooled().SetQueue(DefaultQueue());
}

}  // namespace sheetwright

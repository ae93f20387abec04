#include "print/print_job.h"

#include "core/application.h"
#include "core/error_log.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/busy_display.h"
#include "document/design_walk.h"
#include "document/document.h"
#include "formula/recalculation.h"
#include "formula/value_conversion.h"
#include "print/design_cache.h"
#include "print/device.h"
#include "print/element_rendering.h"
#include "print/primitives.h"
#include "print/print_state.h"
#include "print/stationery.h"
#include "print/text_box.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace sheetwright {

namespace {

constexpr std::int32_t kNoSelection = 4;
constexpr std::int32_t kReturnDeviceContext = 256;
constexpr std::int32_t kHidePrintToFile = 1048576;

// Fields of a page's stationery value.
constexpr int kStationeryX = 3;
constexpr int kStationeryY = 4;

// Logs what fails in a routine and lets its walk go on, until it is switched off: then failures travel.
class FailureLog {
  public:
    FailureLog(Application& application, QString routine)
        : m_application(application), m_routine(std::move(routine)) {}

    int page = 0;
    int line = 0;

    void SwitchOff() { m_isOn = false; }

    // A step that switches the log off lets its own failure travel, too.
    template <typename Step>
    void Run(Step&& step) const {
        try {
            std::forward<Step>(step)();
        } catch (const Failure& caught) {
            if (!m_isOn) throw;
            ++m_application.printing.lostSteps;
            Ignoring([&] { LogError(m_application, m_routine, Place(), caught.Number()); });
        }
    }

  private:
    [[nodiscard]] QString Place() const { return QStringLiteral("Page:%1; Line:%2").arg(page).arg(line); }

    Application& m_application;
    QString m_routine;
    bool m_isOn = true;
};

// Whether a step draws nothing and only keeps a field or check box for its value.
bool IsKept(const DesignStep& step) {
    return step.action == DesignStep::Action::Close && (step.kind == u"FIEL" || step.kind == u"CHEC");
}

// The label printing offsets of a job are those that hold when it begins.
class JobOffsets {
  public:
    explicit JobOffsets(Application& application)
        : m_state(application.printing), m_before(m_state.labelOffsets) {
        if (InstalledPrinter(m_state) != nullptr) m_state.labelOffsets = ReadLabelOffsets(application);
    }
    JobOffsets(const JobOffsets&) = delete;
    JobOffsets& operator=(const JobOffsets&) = delete;
    ~JobOffsets() { m_state.labelOffsets = m_before; }

  private:
    PrintState& m_state;
    std::optional<LabelOffsets> m_before;
};

class PrintJob {
  public:
    PrintJob(frmSheetwright& document, Device& device)
        : m_document(document),
          m_device(device),
          m_formFolder(GetFolder(document.Tag)),
          m_form{document.application, *document.surfaces, document.PrintElements, document.MyTempDir,
                 m_formFolder},
          m_log(document.application, QStringLiteral("PrintPages")),
          m_cache(*document.designCache, m_ownCache) {}
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    void PrintPages(int firstPage, int lastPage);
    void PrintDesign(std::int16_t number);

  private:
    void AddMissingPage();
    void PrintPage();
    [[nodiscard]] int LinesOfPage() const;
    void PrintLine();
    void PrintValue(QStringView line);

    using Design = DesignCache::Design;
    void Walk(Design& design, FailureLog& log);
    void Repeat(const Design& design, FailureLog& log);
    [[nodiscard]] bool IsRepeatable(const DesignWalk& walk) const;
    void TakeStep(const DesignStep& step, FailureLog& log);
    void BeginPage(const std::shared_ptr<PropertyBag>& bag, FailureLog& log);
    void AdjustToStationery(const QString& stationery, FailureLog& log);

    frmSheetwright& m_document;
    Device& m_device;
    const QString m_formFolder;
    FormDrawing m_form;
    FailureLog m_log;
    DesignCache m_ownCache;
    DesignCache::Use m_cache;
};

void PrintJob::PrintPages(int firstPage, int lastPage) {
    const BusyDocument busy(m_document.Busy);
    const HourglassPointer hourglass(m_document.application.ui);
    const JobOffsets offsets(m_document.application);
    for (int page = firstPage; page <= lastPage; ++page) {
        m_log.page = page;
        if (page > m_document.memory.DataPageCount()) AddMissingPage();
        PrintPage();
    }
    m_log.Run([&] {
        if (Printer* const printer = InstalledPrinter(m_document.application.printing)) printer->EndDoc();
    });
}

// Its lines go to the page on screen, whatever page is missing.
void PrintJob::AddMissingPage() {
    const std::int16_t onScreen = m_document.DataPageNum;
    const QString header = QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(m_log.page).arg(m_document.PageNum);
    m_log.Run([&] { m_document.memory.AppendFormData(onScreen, header); });
    m_log.Run([&] { m_document.memory.AppendFormData(onScreen, u"END PAGE"); });
}

void PrintJob::PrintPage() {
    m_log.line = 1;
    int count = 0;
    m_log.Run([&] { count = LinesOfPage(); });
    // Drawing a text lets commands in, which may change the page.
    for (; m_log.line <= count; ++m_log.line) {
        m_log.Run([&] { PrintLine(); });
        m_log.Run([&] { count = LinesOfPage(); });
    }
}

int PrintJob::LinesOfPage() const {
    const MemoryBlock& memory = m_document.memory;
    return m_log.page > memory.DataPageCount() ? 0 : memory.DataPage(m_log.page).Count();
}

void PrintJob::PrintLine() {
    const QStringView line = m_document.memory.DataPage(m_log.page).Line(m_log.line);
    if (IsPageHeader(line)) {
        PrintDesign(ToInt16(ToNumber(ValueOf(line), m_document.application.conventions)));
    } else if (!line.startsWith(u"END PAGE")) {
        PrintValue(line);
    }
}

void PrintJob::PrintValue(QStringView line) {
    m_log.SwitchOff();
    const std::shared_ptr<PropertyBag>* const found = m_document.PrintElements.Find(KeyOf(line));
    if (found == nullptr) return;
    const std::shared_ptr<PropertyBag> bag = *found;  // a command may begin another job meanwhile
    const QString* const key = bag->Find(u"Key");
    if (key == nullptr) return;
    const QString value = ValueOf(line).toString();
    if (*key != u"F") return DrawCheckBox(m_form, m_device, *bag, value);
    const std::optional<FieldLook>& look =
        m_cache->LookOf(m_document.application, *bag, m_document.PrintFillings);
    if (look) {
        DrawField(m_form, m_device, *look, value);
    } else {
        DrawField(m_form, m_device, *bag, value);
    }
}

void PrintJob::PrintDesign(std::int16_t number) {
    FailureLog log(m_document.application, QStringLiteral("PrintDesignPage"));
    log.page = number;
    log.line = 1;
    Design* design = nullptr;
    log.Run([&] { design = &m_cache->DesignOf(m_document.application, m_document.memory, number); });
    const bool isStillThere = design != nullptr && design == m_cache->lastDesign &&
                              m_cache->lastFilling == m_document.PrintFillings && design->isRepeatable;
    if (isStillThere) return Repeat(*design, log);

    m_document.PrintFields.clear();
    m_document.PrintChecks.clear();
    m_document.PrintElements.Clear();
    m_cache->lastFilling = ++m_document.PrintFillings;
    m_cache->lastDesign = nullptr;
    if (design == nullptr) return;
    Walk(*design, log);
    design->isRepeatable = IsRepeatable(design->walk);
    m_cache->lastDesign = design;
}

void PrintJob::Walk(Design& design, FailureLog& log) {
    design.walk.Rewind();
    for (const DesignStep& step : design.walk.Steps()) {
        log.line = step.line;
        log.Run([&] { TakeStep(step, log); });
    }
}

// Fields and check boxes are still there from the page before: only what draws is done again.
void PrintJob::Repeat(const Design& design, FailureLog& log) {
    for (const DesignStep& step : design.walk.Steps()) {
        if (step.action == DesignStep::Action::Open || IsKept(step)) continue;
        log.line = step.line;
        log.Run([&] { TakeStep(step, log); });
    }
}

// Not when anything failed that must be logged for each page.
bool PrintJob::IsRepeatable(const DesignWalk& walk) const {
    if (walk.BringsKey(u"Key")) return false;
    const bool hasFailed = std::ranges::any_of(walk.Steps(), [](const DesignStep& step) {
        return step.action == DesignStep::Action::EqualKey || step.action == DesignStep::Action::LateKey;
    });
    const auto toKeep = std::ranges::count_if(walk.Steps(), [&](const DesignStep& step) {
        return IsKept(step) && RecordView(m_document.application, *step.bag).IsPrintable();
    });
    return !hasFailed && toKeep == m_document.PrintElements.Count();
}

void PrintJob::TakeStep(const DesignStep& step, FailureLog& log) {
    switch (step.action) {
        case DesignStep::Action::Open:
            if (step.kind == u"FIEL") m_document.PrintFields.push_back(step.bag);
            if (step.kind == u"CHEC") m_document.PrintChecks.push_back(step.bag);
            break;
        case DesignStep::Action::PageKeys:
            BeginPage(step.bag, log);
            break;
        case DesignStep::Action::Close:
            PrintControl(m_form, m_device, step.kind, step.bag);
            break;
        case DesignStep::Action::LateKey:
            step.bag->Add(step.value, step.key);
            break;
        case DesignStep::Action::EqualKey:
            throw Failure(failure::kKeyExists);
    }
}

void PrintJob::BeginPage(const std::shared_ptr<PropertyBag>& bag, FailureLog& log) {
    const QString stationery = PageRecord(m_document.application, *bag).PrePrinted();
    if (!stationery.isEmpty()) AdjustToStationery(stationery, log);
    PrintControl(m_form, m_device, u"PAGE", bag);
}

// A device without a driver is no printer and needs no adjust. From here on failures travel.
void PrintJob::AdjustToStationery(const QString& stationery, FailureLog& log) {
    log.SwitchOff();
    if (Ignoring([&] { (void)m_device.DriverName(); })) return;
    const Conventions& conventions = m_document.application.conventions;
    LoadPrinterAdjust(m_document.application, m_device,
                      ToNumber(StationeryField(stationery, kStationeryX), conventions),
                      ToNumber(StationeryField(stationery, kStationeryY), conventions));
}

// False when the person cancelled. The printer follows the system's either way.
bool AskForPages(Application& application, PrinterDialog& dialog) {
    const bool isCancelled = Ignoring([&] { application.ui.ShowPrinter(dialog); }).has_value();
    const bool isLost = Ignoring([&] { application.printing.printers->FollowDefault(); }).has_value();
    return !isCancelled && !isLost;
}

}  // namespace

void mnuFilePrint_Click(frmSheetwright& document) {
    if (!document.application.ReportMode) return DoRealPrint(document);
    document.application.ui.TellHost(document.Changed ? QStringLiteral("EVENT: PRINT CHANGED")
                                                      : QStringLiteral("EVENT: PRINT"));
}

void DoRealPrint(frmSheetwright& document) {
    Application& application = document.application;
    try {
        ÜberupdateFormulas(document, false);
    } catch (...) {
        RecoverFromFailedPass(document);
        throw;
    }
    // A printer may have been installed since: with a spooler, only the dialog knows.
    if (application.printing.printers == nullptr) throw Failure(failure::kPrinterError);

    PrinterDialog dialog;
    dialog.maximumPage = document.Pages;
    dialog.toPage = document.Pages;
    dialog.flags = kNoSelection | kReturnDeviceContext | kHidePrintToFile;
    if (!AskForPages(application, dialog)) return;
    PrintPages(document, application.printing.printers->Printer(), dialog.fromPage, dialog.toPage);
}

void PrintPages(frmSheetwright& document, Device& device, std::int16_t firstPage, std::int16_t lastPage) {
    PrintJob(document, device).PrintPages(firstPage, lastPage);
}

void PrintDesignPage(frmSheetwright& document, Device& device, std::int16_t designNumber) {
    PrintJob(document, device).PrintDesign(designNumber);
}

}  // namespace sheetwright

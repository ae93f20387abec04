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
#include "print/device.h"
#include "print/element_rendering.h"
#include "print/primitives.h"
#include "print/stationery.h"

#include <map>
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
    FailureLog(const Application& application, QString routine)
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
            Ignoring([&] { LogError(m_application, m_routine, Place(), caught.Number()); });
        }
    }

  private:
    [[nodiscard]] QString Place() const { return QStringLiteral("Page:%1; Line:%2").arg(page).arg(line); }

    const Application& m_application;
    QString m_routine;
    bool m_isOn = true;
};

class PrintJob {
  public:
    PrintJob(frmSheetwright& document, Device& device)
        : m_document(document),
          m_device(device),
          m_formFolder(GetFolder(document.Tag)),
          m_form{document.application, *document.surfaces, document.PrintElements, document.MyTempDir,
                 m_formFolder},
          m_log(document.application, QStringLiteral("PrintPages")) {}
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

    DesignWalk& WalkOf(std::int16_t design);
    void TakeStep(const DesignStep& step, FailureLog& log);
    void BeginPage(const std::shared_ptr<PropertyBag>& bag, FailureLog& log);
    void AdjustToStationery(const QString& stationery, FailureLog& log);

    frmSheetwright& m_document;
    Device& m_device;
    const QString m_formFolder;
    FormDrawing m_form;
    FailureLog m_log;
    std::map<std::int16_t, DesignWalk> m_designs;  // many pages have one design: each is cut once
};

void PrintJob::PrintPages(int firstPage, int lastPage) {
    const HourglassPointer hourglass(m_document.application.ui);
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
    if (*key == u"F") {
        DrawField(m_form, m_device, *bag, value);
    } else {
        DrawCheckBox(m_form, m_device, *bag, value);
    }
}

void PrintJob::PrintDesign(std::int16_t number) {
    m_document.PrintFields.clear();
    m_document.PrintChecks.clear();
    m_document.PrintElements.Clear();
    FailureLog log(m_document.application, QStringLiteral("PrintDesignPage"));
    log.page = number;
    log.line = 1;
    DesignWalk* walk = nullptr;
    log.Run([&] { walk = &WalkOf(number); });
    if (walk == nullptr) return;
    walk->Rewind();
    for (const DesignStep& step : walk->Steps()) {
        log.line = step.line;
        log.Run([&] { TakeStep(step, log); });
    }
}

DesignWalk& PrintJob::WalkOf(std::int16_t design) {
    const auto known = m_designs.find(design);
    if (known != m_designs.end()) return known->second;
    return m_designs.emplace(design, DesignWalk(m_document.memory.DesignPage(design))).first->second;
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

// False when the person cancelled.
bool AskForPages(Application& application, PrinterDialog& dialog) {
    const std::optional<Failure> caught = Ignoring([&] {
        application.ui.ShowPrinter(dialog);
        application.printing.printers->FollowDefault();
    });
    return !caught;
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
    if (InstalledPrinter(application.printing) == nullptr) throw Failure(failure::kPrinterError);

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

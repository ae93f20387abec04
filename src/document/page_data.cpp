#include "document/page_data.h"

#include "core/application.h"
#include "core/error_log.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_building.h"
#include "document/page_panel.h"
#include "document/page_view_layout.h"
#include "fields/editing.h"
#include "fields/editing_entry.h"
#include "formula/value_conversion.h"
#include "print/form_surfaces.h"

#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace sheetwright {

namespace {

// Whether the elements are those of a design that is there. Messages that run while a page is built must not
// save a half of it.
bool IsPageBuilt(const frmSheetwright& document) {
    return document.PageNum >= 1 && document.PageNum <= document.memory.DesignPageCount() &&
           document.surfaces->picForm.Visible;
}

// The lines of the page on screen, put together before any line of memory is given up.
class PageSaver {
  public:
    explicit PageSaver(frmSheetwright& document) : m_document(document) {
        if (!document.Quiet) m_progress.emplace(document.application.ui);
    }

    void Save();

  private:
    template <typename ValueOfElement>
    void Gather(const ElementBags& bags, ValueOfElement&& valueOf);
    void Store();

    frmSheetwright& m_document;
    std::optional<ShownProgress> m_progress;
    std::vector<QString> m_lines;
};

void PageSaver::Save() {
    const Application& application = m_document.application;
    const Page& page = *m_document.page;
    ReportStatus(m_document, application.Translate(QStringLiteral("Saving fields...")));
    Gather(page.FieldProperties, [&](int number) { return page.Entries.At(number).text; });
    ReportStatus(m_document, application.Translate(QStringLiteral("Saving checkboxes...")));
    Gather(page.CheckProperties, [&](int number) { return page.Checks.At(number).control->Value(); });
    ReportStatus(m_document, application.Translate(QStringLiteral("Saving bitmaps...")));
    Gather(page.BitmapProperties, [&](int number) { return page.Bitmaps.At(number).control->Value(); });
    Store();
}

// An element that was made without a name has no line.
template <typename ValueOfElement>
void PageSaver::Gather(const ElementBags& bags, ValueOfElement&& valueOf) {
    const auto count = static_cast<int>(bags.size());
    for (int number = 1; number <= count; ++number) {
        const QString* const name = bags[static_cast<std::size_t>(number - 1)]->Find(u"Name");
        if (name != nullptr) m_lines.push_back(*name + u'=' + valueOf(number));
        if (m_progress) m_progress->Update(number, count);
    }
}

void PageSaver::Store() {
    MemoryBlock& memory = m_document.memory;
    const std::int16_t number = m_document.DataPageNum;
    if (number >= 0 && number <= memory.DataPageCount()) memory.ClearDataPage(number);
    memory.AppendFormData(number,
                          QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(m_document.PageNum));
    for (QString& line : m_lines)
        memory.AppendDataLine(number, std::move(line));
    memory.AppendDataLine(number, QStringLiteral("END PAGE"));
}

void SavePageOnScreen(frmSheetwright& document) {
    if (!IsPageBuilt(document)) return;
    const Application& application = document.application;
    std::optional<HourglassPointer> pointer;
    if (!document.Quiet) pointer.emplace(application.ui);
    ReportStatus(document, application.Translate(QStringLiteral("Clearing memory block...")));
    Unselect(document);
    PageSaver(document).Save();
    ReportStatus(document, application.Translate(QStringLiteral("Ready")));
}

// While a page is loaded the main window takes no command. Bulk work keeps it as it was.
class DisabledMainWindow {
  public:
    explicit DisabledMainWindow(const frmSheetwright& document)
        : m_window(*document.application.mainWindow),
          m_isEnabledAfter(!document.Quiet || m_window.IsEnabled()) {
        m_window.SetEnabled(false);
    }
    ~DisabledMainWindow() { m_window.SetEnabled(m_isEnabledAfter); }
    DisabledMainWindow(const DisabledMainWindow&) = delete;
    DisabledMainWindow& operator=(const DisabledMainWindow&) = delete;

  private:
    MainWindow& m_window;
    bool m_isEnabledAfter;
};

// The number behind the "=" of a page's header. Raises 13 or 6 when it is no 16-bit number.
std::int16_t DesignIn(QStringView header) {
    const std::optional<double> number = StrictNumber(ValueOf(header), Conventions());
    if (!number) throw Failure(failure::kTypeMismatch);
    return ToInt16(*number);
}

int NumberIn(QStringView key) {
    return key.toInt();
}

// One walk over the lines of a data page.
class PageLoader {
  public:
    explicit PageLoader(frmSheetwright& document) : m_document(document), m_page(*document.page) {}

    // Whether anything failed.
    [[nodiscard]] bool Load();

  private:
    void DropEdit();
    void Walk();
    void Take(QStringView line);
    void TakeHeader(QStringView line);
    void ShowNumber();
    void TakeValue(QStringView line);
    void SetValue(const QString& key, const QString& value);
    void SetState(usrEntry& check, const QString& value);
    void EmptyElements();

    template <typename Step>
    void Run(Step&& step);

    frmSheetwright& m_document;
    Page& m_page;
    bool m_hasValue = false;
    bool m_hasFailed = false;
};

bool PageLoader::Load() {
    Run([this] { ScrollTo(m_document, 0, 0); });
    if (m_page.isEntryVisible) Run([this] { DropEdit(); });
    Run([this] { Walk(); });
    if (!m_hasValue) Run([this] { EmptyElements(); });
    Run([this] { HighlightBlanks(m_document); });
    m_document.Pages = m_document.memory.DataPageCount();
    m_document.window->PageChanged();
    return m_hasFailed;
}

// What is typed into the page that was shown must not go into this one.
void PageLoader::DropEdit() {
    m_page.CurrentEntry = {};
    CloseEntry(m_document);
}

void PageLoader::Walk() {
    const PageLines& lines = m_document.memory.DataPage(m_document.DataPageNum);
    for (int position = 1; position <= lines.Count(); ++position)
        Take(lines.Line(position));
}

void PageLoader::Take(QStringView line) {
    if (IsPageHeader(line)) {
        TakeHeader(line);
    } else if (!line.startsWith(u"END PAGE")) {
        Run([&] { TakeValue(line); });
    }
}

void PageLoader::TakeHeader(QStringView line) {
    std::int16_t design = m_document.PageNum;
    Run([&] { design = DesignIn(line); });
    if (design != m_document.PageNum) {
        m_document.PageNum = design;
        m_document.application.mainWindow->SetUndoEnabled(false);
        Run([this] { LoadDesignPage(m_document); });
    }
    Run([this] { ShowNumber(); });
}

void PageLoader::ShowNumber() {
    MainWindow& mainWindow = *m_document.application.mainWindow;
    if (NumericPrefix(mainWindow.PagePanel()) != m_document.DataPageNum) {
        const KeyedCollection<QString>& titles = m_document.memory.PageProps;
        const bool hasTitle = m_document.PageNum >= 1 && m_document.PageNum <= titles.Count();
        mainWindow.SetUndoEnabled(false);
        ShowPagePanel(m_document, hasTitle ? titles.At(m_document.PageNum) : PageWithoutTitle(m_document));
        ShowPageBox(m_document);
    }
    ReportStatusAgain(m_document);
}

void PageLoader::TakeValue(QStringView line) {
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0) throw Failure(failure::kSubscript);
    const QStringView name = line.first(equals);
    m_hasValue = m_hasValue || !name.isEmpty();
    SetValue(m_page.names.At(name)->At(u"Key"), line.sliced(equals + 1).toString());
}

void PageLoader::SetValue(const QString& key, const QString& value) {
    const QStringView number = QStringView(key).sliced(1);
    if (key.startsWith(u'C')) {
        SetState(*m_page.Checks.At(NumberIn(number)).control, value);
    } else if (key.startsWith(u'B')) {
        m_page.Bitmaps.At(NumberIn(number)).control->SetValue(value);
    } else {
        m_page.Entries.At(NumberIn(key)).text = value;
    }
}

// Any text is a state; a number beyond the last one leaves the check box as it was.
void PageLoader::SetState(usrEntry& check, const QString& value) {
    check.SetValue(value);
    const double state = std::abs(ToNumber(value, m_document.application.conventions));
    if (std::nearbyint(state) != check.chkBox().Value()) throw Failure(failure::kInvalidProperty);
}

void PageLoader::EmptyElements() {
    const QString unset = QStringLiteral("0");
    for (TextElement& element : m_page.Entries)
        element.text = QString();
    for (const FieldElement& element : m_page.Checks)
        element.control->SetValue(unset);
    for (const FieldElement& element : m_page.Bitmaps)
        element.control->SetValue(unset);
}

template <typename Step>
void PageLoader::Run(Step&& step) {
    if (LoggedStep(m_document.application, QStringLiteral("LoadPage"), m_document.Tag,
                   std::forward<Step>(step)))
        m_hasFailed = true;
}

// Whether anything failed.
bool ShowPage(frmSheetwright& document) {
    const Application& application = document.application;
    const BusyDocument busy(document.Busy);
    std::optional<HourglassPointer> pointer;
    if (!document.Quiet) pointer.emplace(application.ui);
    const DisabledMainWindow disabled(document);
    ReportStatus(document, application.Translate(QStringLiteral("Loading data...")));
    const bool hasFailed = PageLoader(document).Load();
    ReportStatus(document, application.Translate(QStringLiteral("Ready")));
    return hasFailed;
}

void LoadPageOnScreen(frmSheetwright& document) {
    if (document.memory.DataPageCount() < 1 || !ShowPage(document)) return;
    TellOfFailures(
        document, QStringLiteral("ERROR: Loading the form"),
        document.application.Translate(QStringLiteral("One or more errors occured loading the form.")));
}

}  // namespace

void UsePageOnScreen(frmSheetwright& document) {
    document.PageNum = 0;
    document.page->Entry.FormFolder = [&document] { return GetFolder(document.Tag); };
    document.SavePageHook = [&document] { SavePageOnScreen(document); };
    document.LoadPageHook = [&document] { LoadPageOnScreen(document); };
}

}  // namespace sheetwright

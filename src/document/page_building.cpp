#include "document/page_building.h"

#include "core/application.h"
#include "core/error_log.h"
#include "document/busy_display.h"
#include "document/design_walk.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_elements.h"
#include "document/page_panel.h"
#include "document/text_pool.h"
#include "fields/dragging.h"
#include "fields/editing_elements.h"
#include "fields/editing_entry.h"
#include "fields/navigation.h"
#include "print/form_surfaces.h"
#include "print/screen_drawing.h"

#include <QScopeGuard>

#include <algorithm>
#include <optional>
#include <utility>

namespace sheetwright {

namespace {

using Bag = std::shared_ptr<PropertyBag>;

constexpr QStringView kPageKind = u"PAGE";

struct KindMaking {
    QStringView kind;
    void (*make)(frmSheetwright& document, const Bag& bag);
};

constexpr KindMaking kKinds[] = {
    {kPageKind, MakePage}, {u"FRAM", MakeFrame}, {u"LINE", MakeLine},     {u"SHAP", MakeShape},
    {u"LABE", MakeLabel},  {u"FIEL", MakeField}, {u"CHEC", MakeCheckBox}, {u"PICT", MakePicture},
};

// The hourglass, unless the document works quietly.
class BusyPointer {
  public:
    explicit BusyPointer(const frmSheetwright& document) {
        if (!document.Quiet) m_pointer.emplace(document.application.ui);
    }

  private:
    std::optional<HourglassPointer> m_pointer;
};

// One walk over the lines of a design page.
class DesignBuilder {
  public:
    explicit DesignBuilder(frmSheetwright& document) : m_document(document) {
        if (!document.Quiet) m_progress.emplace(document.application.ui);
    }

    // Whether anything failed.
    [[nodiscard]] bool Build();

  private:
    void Walk();
    void Take(QStringView line);
    void Make(QStringView line);
    void AddKey(QStringView line, const DesignLine& cut);

    template <typename Step>
    void Run(QStringView line, Step&& step);

    frmSheetwright& m_document;
    std::optional<ShownProgress> m_progress;
    QString m_kind;
    Bag m_bag = std::make_shared<PropertyBag>();
    TextPool m_texts;
    bool m_hasFailed = false;
};

bool DesignBuilder::Build() {
    Run({}, [this] { Walk(); });
    return m_hasFailed;
}

void DesignBuilder::Walk() {
    constexpr int kLinesPerUpdate = 100;
    const PageLines& design = m_document.memory.DesignPage(m_document.PageNum);
    const int count = design.Count();
    int untilUpdate = kLinesPerUpdate;
    for (int position = 1; position <= count && position <= design.Count(); ++position) {
        Take(design.Line(position));
        if (--untilUpdate > 0) continue;
        untilUpdate = kLinesPerUpdate;
        if (m_progress) m_progress->Update(position, count);
    }
}

void DesignBuilder::Take(QStringView line) {
    const DesignLine cut = CutDesignLine(line);
    switch (cut.type) {
        case DesignLine::Type::Empty:
            break;
        case DesignLine::Type::Begin:
            if (m_kind == kPageKind) Make(line);
            m_kind = cut.kind.toString();
            m_bag = std::make_shared<PropertyBag>();
            break;
        case DesignLine::Type::End:
            m_kind = cut.kind.toString();
            if (m_kind != kPageKind) Make(line);
            break;
        case DesignLine::Type::Key:
            Run(line, [&] { AddKey(line, cut); });
            break;
    }
}

void DesignBuilder::Make(QStringView line) {
    Run(line, [this] { MakeForm(m_document, m_kind, m_bag); });
}

// A form that is only looked at has no field that can be changed.
void DesignBuilder::AddKey(QStringView line, const DesignLine& cut) {
    if (!line.contains(u'=')) throw Failure(failure::kSubscript);
    const bool isForced = IsLocked(m_document) && cut.key.compare(u"readonly", Qt::CaseInsensitive) == 0;
    m_bag->Add(isForced ? QStringLiteral("True") : m_texts.Shared(cut.value), m_texts.Shared(cut.key));
}

// The line is put together for the log only when it is needed: a design has thousands.
template <typename Step>
void DesignBuilder::Run(QStringView line, Step&& step) {
    const std::optional<Failure> caught = Ignoring(std::forward<Step>(step));
    if (!caught) return;
    m_hasFailed = true;
    Ignoring([&] {
        LogError(m_document.application, QStringLiteral("LoadDesignPage"),
                 m_document.Tag + u' ' + line.toString(), caught->Number());
    });
}

// Whether anything failed.
bool BuildPage(frmSheetwright& document) {
    const BusyDocument busy(document.Busy);
    const Application& application = document.application;
    document.surfaces->picForm.Visible = false;
    const auto show = qScopeGuard([&document] {
        document.surfaces->picForm.Visible = true;
        document.window->PageChanged();
    });
    ReportStatus(document, application.Translate(QStringLiteral("Clearing page...")));
    ClearPage(document);

    const BusyPointer pointer(document);
    ReportStatus(document, application.Translate(QStringLiteral("Loading form template...")));
    const bool hasFailed = DesignBuilder(document).Build();
    SortTabOrders(*document.page, application.conventions);
    ReportStatus(document, application.Translate(QStringLiteral("Ready")));
    return hasFailed;
}

}  // namespace

void LoadDesignPage(frmSheetwright& document) {
    if (!BuildPage(document)) return;
    TellOfFailures(document, QStringLiteral("ERROR: Loading the form design"),
                   document.application.Translate(
                       QStringLiteral("One or more errors occured loading the form design.")));
}

void ClearPage(frmSheetwright& document) {
    const BusyPointer pointer(document);
    Page& page = *document.page;
    Ignoring([&] { CancelDrag(document); });
    page.CurrentEntry = {};
    page.names.Clear();
    page.TabOrders.Clear();
    page.FieldProperties.clear();
    page.CheckProperties.clear();
    page.BitmapProperties.clear();
    page.Entries.UnloadAll();
    page.Checks.UnloadAll();
    page.Bitmaps.UnloadAll();
    if (page.isEntryVisible) Ignoring([&] { CloseEntry(document); });
    document.surfaces->picForm.Cls();
    page.isStationeryPainted = false;
    ShowPagePanel(document, PageWithoutTitle(document));
    ShowPageBox(document);
    ReportStatusAgain(document);
    document.window->PageChanged();
}

void MakeForm(frmSheetwright& document, QStringView kind, const Bag& bag) {
    const auto* const known =
        std::ranges::find_if(kKinds, [&](const KindMaking& making) { return making.kind == kind; });
    if (known == std::end(kKinds)) return;
    const ScreenDrawing drawing(document.application.printing);
    known->make(document, bag);
}

}  // namespace sheetwright

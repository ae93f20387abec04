#include "import/import_snapshot.h"

#include "core/application.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_view_layout.h"
#include "fields/editing.h"

#include <QFile>
#include <QScopedValueRollback>

#include <algorithm>

namespace sheetwright {

namespace {

using FieldElements = ElementArray<FieldElement>;

std::vector<QString> ValuesOf(const FieldElements& elements) {
    std::vector<QString> values;
    for (const FieldElement& element : elements)
        values.push_back(element.control->Value());
    return values;
}

// A picture that is there already is not taken again.
void SetValues(const FieldElements& elements, const std::vector<QString>& values) {
    const int count = std::min(elements.Count(), static_cast<int>(values.size()));
    for (int number = 1; number <= count; ++number) {
        usrEntry& control = *elements.At(number).control;
        const QString& value = values[static_cast<std::size_t>(number - 1)];
        if (control.Value() != value) control.SetValue(value);
    }
}

}  // namespace

FormSnapshot::FormSnapshot(frmSheetwright& document)
    : m_document(document),
      m_memory(document.memory),
      m_formVars(document.application.FormVars),
      m_status(document.application.ui.Status()),
      m_dataPageNum(document.DataPageNum),
      m_mePage(document.MePage),
      m_me(document.Me),
      m_currentRecord(document.CurrentRecord),
      m_isChanged(document.Changed),
      m_isPageChanged(document.PageChanged),
      m_isUndoEnabled(document.application.mainWindow->IsUndoEnabled()),
      m_horizontal(document.page->hsbForm.value),
      m_vertical(document.page->vsbForm.value) {
    KeepPage();
}

void FormSnapshot::KeepPage() {
    const Page& page = *m_document.page;
    for (const TextElement& element : page.Entries)
        m_texts.push_back(element.text);
    m_checks = ValuesOf(page.Checks);
    m_pictures = ValuesOf(page.Bitmaps);
    m_edit.element = page.CurrentEntry;
    if (m_edit.element.kind != ElementKind::Entry) return;
    m_edit.text = page.Entry.Value();
    m_edit.selectionStart = page.Entry.SelStart();
    m_edit.selectionLength = page.Entry.SelLength();
    if (const CsvTable* const list = page.Entry.ListTable()) m_edit.listRow = list->Position();
}

void FormSnapshot::Restore() {
    UserInterface& ui = m_document.application.ui;
    const QScopedValueRollback quiet(m_document.Quiet, true);
    for (const QString& path : m_files)
        if (!path.isEmpty()) QFile::remove(OnDisk(path));
    m_document.Importing = false;
    m_document.DriverData.SetFileName({});
    m_document.memory = std::move(m_memory);
    m_document.Pages = m_document.memory.DataPageCount();
    RestoreNumbers();
    RestorePage();
    RestoreEdit();
    m_document.Changed = m_isChanged;
    m_document.PageChanged = m_isPageChanged;
    m_document.application.mainWindow->SetUndoEnabled(m_isUndoEnabled);
    ui.HideProgress();
    ui.SetStatus(m_status);
}

void FormSnapshot::RestoreNumbers() {
    m_document.application.FormVars = std::move(m_formVars);
    m_document.DataPageNum = m_dataPageNum;
    m_document.MePage = m_mePage;
    m_document.Me = m_me;
    m_document.CurrentRecord = m_currentRecord;
}

// The lines don't have what was entered since the page was shown: it comes on top of them.
void FormSnapshot::RestorePage() {
    LoadPage(m_document);
    Page& page = *m_document.page;
    const int count = std::min(page.Entries.Count(), static_cast<int>(m_texts.size()));
    for (int number = 1; number <= count; ++number)
        page.Entries.At(number).text = m_texts[static_cast<std::size_t>(number - 1)];
    SetValues(page.Checks, m_checks);
    SetValues(page.Bitmaps, m_pictures);
    HighlightBlanks(m_document);
    m_document.window->PageChanged();
    RefreshPageControl(m_document);
    ScrollTo(m_document, m_horizontal, m_vertical);
}

void FormSnapshot::RestoreEdit() const {
    if (m_edit.element.IsNone()) return;
    if (m_edit.element.kind != ElementKind::Entry) return FocusField(m_document, m_edit.element);
    Entries_GotFocus(m_document, m_edit.element.number);
    usrEntry& entry = m_document.page->Entry;
    if (entry.Value() != m_edit.text) entry.ReportText(m_edit.text);
    entry.SetSelStart(m_edit.selectionStart);
    entry.SetSelLength(m_edit.selectionLength);
    CsvTable* const list = entry.ListTable();
    if (list != nullptr && m_edit.listRow <= list->RecordCount()) list->SetPosition(m_edit.listRow);
}

}  // namespace sheetwright

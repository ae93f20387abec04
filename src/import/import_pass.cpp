#include "import/import_pass.h"

#include "core/application.h"
#include "core/failure.h"
#include "document/document.h"
#include "document/page.h"
#include "document/pages.h"
#include "formula/value_conversion.h"
#include "import/import_snapshot.h"

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr int kPagesOfPair = 2;

std::int16_t LineOf(const BoundElement& element) {
    if (!element.line) throw Failure(failure::kOverflow);
    return *element.line;
}

bool IsOther(const std::optional<QString>& previous, const QString& value) {
    return previous && *previous != value;
}

}  // namespace

void EndIfStopped(const frmSheetwright& document) {
    if (document.application.ui.IsStopWanted()) throw ImportStopped();
}

RecordPass::RecordPass(frmSheetwright& document, const std::vector<BoundColumn>& columns, int* linkedNextPage)
    : m_document(document), m_linkedNextPage(linkedNextPage), m_lists(document) {
    for (const BoundColumn& column : columns)
        m_columns.push_back({&column, {}});
}

void RecordPass::WriteRecord() {
    Restart restart = Restart::None;
    do {
        m_undo.clear();
        restart = WriteColumns();
    } while (restart != Restart::None);
}

RecordPass::Restart RecordPass::WriteColumns() {
    for (Column& column : m_columns) {
        const QString value = column.bound->column->Value();
        const Restart restart = value.isEmpty() ? Restart::None : WriteColumn(column, value);
        if (restart == Restart::None) {
            column.previous = value;
        } else if (restart == Restart::OnPage) {
            for (Column& other : m_columns)
                other.previous.reset();
        }
        if (restart != Restart::None) return restart;
    }
    return Restart::None;
}

RecordPass::Restart RecordPass::WriteColumn(const Column& column, const QString& value) {
    for (const BoundElement& element : column.bound->elements) {
        m_maxLine = std::max(m_maxLine, LineOf(element));
        const Restart restart = element.isField ? TriggerOf(column, element, value) : Restart::None;
        if (restart != Restart::None) {
            Begin(restart);
            return restart;
        }
        if (element.line == m_document.CurrentRecord) Write(*column.bound->column, element, value);
    }
    return Restart::None;
}

RecordPass::Restart RecordPass::TriggerOf(const Column& column, const BoundElement& element,
                                          const QString& value) const {
    if (StartsPage(column, element, value)) return Restart::OnPage;
    if (element.line != m_document.CurrentRecord || !StartsLine(column, element, value)) return Restart::None;
    return m_document.CurrentRecord == m_maxLine ? Restart::OnPage : Restart::OnLine;
}

bool RecordPass::StartsPage(const Column& column, const BoundElement& element, const QString& value) const {
    if (element.newPageOnReoccur) return !Field(element).text.isEmpty();
    return element.newPageOnChange && IsOther(column.previous, value);
}

bool RecordPass::StartsLine(const Column& column, const BoundElement& element, const QString& value) const {
    if (element.newLineOnReoccur) return !Field(element).text.isEmpty();
    return element.newLineOnChange && IsOther(column.previous, value) && !Field(element).text.isEmpty();
}

void RecordPass::Write(const CsvColumn& column, const BoundElement& element, const QString& value) {
    if (element.isField) return WriteField(column, element);
    WriteCheck(element.number, value);
}

void RecordPass::WriteField(const CsvColumn& column, const BoundElement& element) {
    const QString old = Field(element).text;
    const QString text = FieldDisplayText(column, m_document.application.conventions, m_document.words);
    Field(element).text = text;
    if (text != old) m_document.window->ElementChanged({ElementKind::Entry, element.number});
    if (!element.list.isEmpty()) m_lists.Fill(element.number, element.list);
    if (Field(element).text != old) m_undo.emplace_back(old, element.number);
}

void RecordPass::WriteCheck(int number, const QString& value) {
    const Conventions& conventions = m_document.application.conventions;
    const double state = std::abs(ToNumber(value, conventions));
    m_document.page->Checks.At(number).control->SetValue(TextOf(state, conventions));
    m_document.window->ElementChanged({ElementKind::Check, number});
}

void RecordPass::Begin(Restart restart) {
    Undo();
    if (restart == Restart::OnLine) {
        ++m_document.CurrentRecord;
        return;
    }
    SavePage(m_document);
    AddPageBehind();
    m_document.CurrentRecord = 0;
    EndIfStopped(m_document);
}

void RecordPass::Undo() {
    for (const auto& [text, number] : m_undo) {
        m_document.page->Entries.At(number).text = text;
        m_document.window->ElementChanged({ElementKind::Entry, number});
    }
}

// Pages that come in pairs were added by the run before; there may be fewer of them.
void RecordPass::AddPageBehind() {
    if (m_linkedNextPage == nullptr)
        return AddPage(m_document, m_document.PageNum, Placement::AtEnd, m_document.Pages);
    *m_linkedNextPage = std::min(*m_linkedNextPage + kPagesOfPair, m_document.Pages + 1);
    AddPage(m_document, m_document.PageNum, Placement::Before, ToInt16(*m_linkedNextPage));
}

TextElement& RecordPass::Field(const BoundElement& element) const {
    return m_document.page->Entries.At(element.number);
}

}  // namespace sheetwright

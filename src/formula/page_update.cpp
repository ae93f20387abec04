#include "formula/page_update.h"

#include "core/application.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/editing.h"
#include "formula/evaluator.h"
#include "formula/recalculation.h"
#include "formula/value_conversion.h"
#include "import/csv_cache.h"

namespace sheetwright {

namespace {

constexpr std::int16_t kWholePage = -1;

// What the import gave a field that reads driver data stays while no record is at hand.
bool RunsNow(const frmSheetwright& document, const QString& formula) {
    if (document.CurrentRecord > kWholePage) return true;
    return document.CurrentRecord == kWholePage && !formula.contains(QStringLiteral("{DRIVERS\\"));
}

bool IsOfRecord(const frmSheetwright& document, const FieldRecord& field) {
    if (document.CurrentRecord == kWholePage) return true;
    const std::int16_t index = field.Has(u"MultiRecordIndex") ? field.MultiRecordIndex() : std::int16_t{0};
    return index == document.CurrentRecord;
}

class UpdatePass {
  public:
    UpdatePass(frmSheetwright& document, CsvCache* lists)
        : m_document(document), m_context(EvaluationContextOf(document)), m_evaluator(m_context) {
        m_context.Lists = lists == nullptr ? &m_lists : lists;
    }

    void RunField(int number) {
        const std::shared_ptr<PropertyBag> record =
            m_document.page->FieldProperties[static_cast<std::size_t>(number - 1)];
        const FieldRecord field(m_document.application, *record);
        if (!IsOfRecord(m_document, field)) return;
        const QString formula = field.Formula();
        if (formula.isEmpty() || !RunsNow(m_document, formula)) return;
        m_document.Me = m_document.page->Entries.At(number).text;
        m_evaluator.RunStatements(formula);
        ShowResult(number);
    }

  private:
    void ShowResult(int number) {
        QString& shown = m_document.page->Entries.At(number).text;
        const QString text = TextOf(m_document.Me, m_document.application.conventions);
        if (text == shown) return;
        m_growth.Add(text.size() - shown.size());
        shown = text;
        m_document.window->ElementChanged({ElementKind::Entry, number});
    }

    frmSheetwright& m_document;
    CsvCache m_lists;
    EvaluationContext m_context;
    Evaluator m_evaluator;
    FormGrowth m_growth;
};

}  // namespace

void UpdateFormulas(frmSheetwright& document, CsvCache* lists) {
    const BusyDocument busy(document.Busy);
    document.application.FormVars.Clear();
    SavePage(document);
    document.MePage = 0;
    UpdatePass pass(document, lists);
    const auto count = static_cast<int>(document.page->FieldProperties.size());
    for (int number = 1; number <= count; ++number)
        pass.RunField(number);
    if (!document.Importing) HighlightBlanks(document);
}

}  // namespace sheetwright

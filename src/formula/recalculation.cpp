#include "formula/recalculation.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/text.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page.h"
#include "formula/display_mask.h"
#include "formula/evaluator.h"
#include "import/csv_cache.h"

#include <QHash>

namespace sheetwright {

namespace {

// The masks of the fields on the page on screen, by field name. Only that page's design is looked at,
// whichever design the page in hand has, and only the first field of a name counts.
QHash<QString, QString> FormatsOnScreen(const frmSheetwright& document) {
    QHash<QString, QString> formats;
    for (const std::shared_ptr<PropertyBag>& field : document.page->FieldProperties) {
        const QString* const name = field->Find(u"Name");
        const QString* const format = field->Find(u"Format");
        if (name != nullptr && !formats.contains(*name))
            formats.insert(*name, format == nullptr ? QString() : *format);
    }
    return formats;
}

class RecalculationPass {
  public:
    explicit RecalculationPass(frmSheetwright& document)
        : m_document(document),
          m_formats(FormatsOnScreen(document)),
          m_context(EvaluationContextOf(document)),
          m_evaluator(m_context) {
        m_context.Lists = &m_lists;
    }

    // Recalculates the page `DataPageNum`.
    void RunPage() {
        m_document.MePage = m_document.DataPageNum;
        const std::int16_t design = m_document.memory.WhichDesign(m_document.DataPageNum);
        m_formatsSeen = false;
        m_isNewDesign = design != m_designBefore;
        m_designBefore = design;
        const KeyedCollection<QString>& formulas = m_document.memory.FormulasOf(design);
        if (formulas.IsEmpty()) return;
        const int count = m_document.memory.DataPage(m_document.DataPageNum).Count();
        for (int position = 2; position <= count; ++position)
            RunItem(formulas, position);
    }

  private:
    void RunItem(const KeyedCollection<QString>& formulas, int position) {
        const PageLines& page = m_document.memory.DataPage(m_document.DataPageNum);
        const QStringView line = page.Line(position);
        if (line == u"END PAGE") return;  // an item without a name, but no formula's to overwrite
        const QString* const formula = formulas.Find(KeyOf(line));
        if (formula == nullptr || formula->isEmpty()) return;

        const QString key = KeyOf(line).toString();
        const QString format = FormatOf(key);
        m_document.Me = ValueOf(line).toString();
        m_evaluator.RunStatements(*formula);
        const Conventions& conventions = m_document.application.conventions;
        QString text = TextOf(m_document.Me, conventions);
        if (!format.isEmpty()) text = FormatValue(text, format, conventions, m_document.words);
        const QString item = key + u'=' + text;
        m_growth.Add(item.size() - page.Line(position).size());
        m_document.memory.ReplaceDataLine(m_document.DataPageNum, position, item);
    }

    // The search for a format is spared on runs of pages of one design: it is made on the first page of a
    // run, and goes on within a page that has shown one.
    QString FormatOf(const QString& key) {
        if (!m_isNewDesign && !m_formatsSeen) return {};
        QString format = m_formats.value(key);
        if (!format.isEmpty()) m_formatsSeen = true;
        return format;
    }

    frmSheetwright& m_document;
    QHash<QString, QString> m_formats;
    CsvCache m_lists;
    EvaluationContext m_context;
    Evaluator m_evaluator;
    FormGrowth m_growth;
    std::int16_t m_designBefore = 0;
    bool m_isNewDesign = false;
    bool m_formatsSeen = false;
};

}  // namespace

void FormGrowth::Add(qint64 characters) {
    constexpr qint64 kMost = 64'000'000;
    m_characters += characters;
    if (m_characters > kMost) throw Failure(failure::kOutOfMemory);
}

EvaluationContext EvaluationContextOf(frmSheetwright& document) {
    return {.application = document.application,
            .memory = document.memory,
            .FormVars = document.application.FormVars,
            .words = document.words,
            .MyTempDir = document.MyTempDir,
            .DataPageNum = document.DataPageNum,
            .MePage = document.MePage,
            .Me = document.Me,
            .DriverData = &document.DriverData,
            .EntryList = document.EntryList};
}

void ÜberupdateFormulas(frmSheetwright& document, bool noSave) {
    Application& application = document.application;
    if (document.Importing || application.ViewerMode) return;
    const BusyDocument busy(document.Busy);
    application.FormVars.Clear();
    if (!noSave) SavePage(document);
    application.ui.SetPointer(Pointer::Hourglass);
    ProgressBar bar(application.ui);
    application.ui.SetStatus(application.Translate(QStringLiteral("Updating formulae...")));

    const std::int16_t shown = document.DataPageNum;
    document.InterruptedPage = shown;
    RecalculationPass pass(document);
    const int count = document.memory.DataPageCount();
    for (int page = 1; page <= count; ++page) {
        document.DataPageNum = static_cast<std::int16_t>(page);
        pass.RunPage();
        bar.Update(page, count);
    }
    document.InterruptedPage = 0;
    document.DataPageNum = shown;
    LoadPage(document);
    bar.Hide();
}

}  // namespace sheetwright

#include "apps/cli/fill_edits.h"

#include "apps/cli/command_line.h"
#include "apps/cli/output.h"
#include "apps/cli/session.h"
#include "document/document.h"
#include "document/page.h"
#include "document/pages.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace sheetwright::cli {

namespace {

constexpr int kLastMode = static_cast<int>(Placement::After);

// Takes ":" and a whole number off the end of `text`.
std::optional<int> TakeNumber(QString& text) {
    const qsizetype colon = text.lastIndexOf(u':');
    if (colon < 0) return std::nullopt;
    const std::optional<int> number = WholeNumber(QStringView(text).sliced(colon + 1));
    if (number) text.truncate(colon);
    return number;
}

// Position of the item `name` of a page, behind the header; 0 for none.
int ItemPosition(const PageLines& page, QStringView name) {
    const int position = page.Find(name);
    return position == 1 ? page.FindNext(name, 1) : position;
}

bool HasItem(const PageLines& page) {
    for (int position = 2; position <= page.Count(); ++position)
        if (!page.Line(position).startsWith(u"END PAGE")) return true;
    return false;
}

// Where an item that the page lacks belongs: behind the nearest element before it that the page has.
int PositionBefore(const PageLines& page, const std::vector<QString>& names, const QString& name) {
    int behind = std::min(page.Count(), 1);
    for (const QString& other : names) {
        if (other == name) break;
        if (const int position = ItemPosition(page, other); position > 0) behind = position;
    }
    return behind;
}

void InsertItem(MemoryBlock& memory, int number, int behind, const QString& item) {
    std::vector<QString> lines;
    for (int position = 1; position <= memory.DataPage(number).Count(); ++position)
        lines.push_back(memory.DataPage(number).Line(position).toString());
    lines.insert(lines.begin() + behind, item);
    memory.ClearDataPage(number);
    for (QString& line : lines)
        memory.AppendDataLine(number, std::move(line));
}

}  // namespace

SetValue ParseSetValue(const QString& text) {
    const qsizetype colon = text.indexOf(u':');
    const qsizetype equals = text.indexOf(u'=', colon + 1);
    if (colon < 0 || equals < 0 || equals == colon + 1)
        throw UsageError(QStringLiteral("--set wants PAGE:NAME=VALUE, not \"%1\"").arg(text));
    return {PageNumber(QStringView(text).first(colon)), text.sliced(colon + 1, equals - colon - 1),
            FromOneLine(QStringView(text).sliced(equals + 1))};
}

InsertPage ParseInsertPage(const QString& text) {
    InsertPage edit{text, static_cast<int>(Placement::AtEnd), std::nullopt};
    const std::optional<int> last = TakeNumber(edit.design);
    const std::optional<int> secondLast = last ? TakeNumber(edit.design) : std::nullopt;
    if (last) edit.mode = secondLast.value_or(*last);
    if (secondLast) edit.position = last;
    if (edit.design.isEmpty()) throw UsageError(QStringLiteral("--add-page wants DESIGN[:MODE[:POSITION]]"));
    if (edit.mode > kLastMode)
        throw UsageError(QStringLiteral("there is no mode %1: it is 0 to 3").arg(edit.mode));
    if (edit.mode >= static_cast<int>(Placement::Before) && !edit.position)
        throw UsageError(QStringLiteral("mode %1 needs a position").arg(edit.mode));
    return edit;
}

void FormEditor::ShowPage(int page) {
    m_document.DataPageNum = static_cast<std::int16_t>(page);
    LoadPage(m_document);
}

const std::vector<QString>& FormEditor::NamesOf(int page) {
    const std::int16_t design = m_document.memory.WhichDesign(page);
    if (const auto known = m_names.find(design); known != m_names.end()) return known->second;
    const int shown = m_document.DataPageNum;
    ShowPage(page);
    std::vector<QString> names;
    if (m_document.PageNum == design)
        for (const auto* const bags : {&m_document.page->FieldProperties, &m_document.page->CheckProperties,
                                       &m_document.page->BitmapProperties})
            for (const std::shared_ptr<PropertyBag>& bag : *bags)
                if (const QString* const name = bag->Find(u"Name")) names.push_back(*name);
    ShowPage(shown);
    return m_names.emplace(design, std::move(names)).first->second;
}

void FormEditor::Apply(const SetValue& edit) {
    RequirePage(m_document, edit.page);
    const std::vector<QString>& names = NamesOf(edit.page);
    if (std::ranges::find(names, edit.name) == names.end())
        throw CommandError(QStringLiteral("page %1 has no field \"%2\"").arg(edit.page).arg(edit.name));

    MemoryBlock& memory = m_document.memory;
    if (!HasItem(memory.DataPage(edit.page))) {
        const int shown = m_document.DataPageNum;
        ShowPage(edit.page);
        SavePage(m_document);
        ShowPage(shown);
    }
    const QString item = edit.name + u'=' + edit.value;
    const PageLines& page = memory.DataPage(edit.page);
    if (const int position = ItemPosition(page, edit.name); position > 0) {
        memory.ReplaceDataLine(edit.page, position, item);
    } else {
        InsertItem(memory, edit.page, PositionBefore(page, names, edit.name), item);
    }
    m_document.Changed = true;
    ++m_done.valuesSet;
}

std::int16_t FormEditor::DesignNamed(const QString& text) const {
    const std::optional<int> number = WholeNumber(text);
    if (number && *number >= 1 && *number <= m_document.memory.DesignPageCount())
        return static_cast<std::int16_t>(*number);
    for (int design = 1; design <= m_document.memory.DesignPageCount(); ++design)
        if (TitleOf(m_document, design) == text) return static_cast<std::int16_t>(design);
    throw CommandError(QStringLiteral("there is no design page \"%1\"").arg(text));
}

void FormEditor::Apply(const InsertPage& edit) {
    const std::int16_t design = DesignNamed(edit.design);
    const auto mode = static_cast<Placement>(edit.mode);
    const int fallback = mode == Placement::AtEnd ? m_document.Pages : 1;
    if (edit.position) RequirePage(m_document, *edit.position);

    // As an import adds pages: the form is recalculated once, when all is in place.
    const QScopedValueRollback importing(m_document.Importing, true);
    AddPage(m_document, design, mode, static_cast<std::int16_t>(edit.position.value_or(fallback)));
    SavePage(m_document);
    ++m_done.pagesAdded;
}

void FormEditor::Apply(const ImportTable& edit) {
    m_done.imports.push_back(TakeTable(m_document, edit));
    m_done.pagesAdded += m_done.imports.back().pagesAdded;
}

}  // namespace sheetwright::cli

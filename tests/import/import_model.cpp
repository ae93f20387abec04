#include "import/import_model.h"

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

struct Endless {};

int RoundedToEven(double number) {
    const double below = std::floor(number);
    if (number - below != 0.5) return static_cast<int>(std::floor(number + 0.5));
    const int whole = static_cast<int>(below);
    return whole % 2 == 0 ? whole : whole + 1;
}

}  // namespace

ImportModel::ImportModel(ModelForm form, int page, int mostPages)
    : m_form(std::move(form)), m_mostPages(mostPages), m_page(page) {
    LoadPage();
}

ModelOutcome ImportModel::Import(const ModelTable& table, const QString& folder) {
    m_table = table;
    m_folder = folder;
    m_outcome = {};
    const auto pages = m_form.pages.size();
    try {
        if (m_form.hasLinks) {
            ImportLinked();
        } else {
            Run(false);
        }
    } catch (const Endless&) {
        m_outcome.isEndless = true;
    }
    m_outcome.pages = m_form.pages;
    m_outcome.pagesAdded = static_cast<int>(m_form.pages.size() - pages);
    m_outcome.pageOnScreen = m_page;
    m_outcome.designOnScreen = m_design;
    m_outcome.texts = m_texts;
    m_outcome.states = m_states;
    return m_outcome;
}

// The page on screen.

const ModelDesign& ImportModel::Shown() const {
    return m_form.designs[static_cast<std::size_t>(m_design - 1)];
}

void ImportModel::LoadPage() {
    const ModelPage& page = m_form.pages[static_cast<std::size_t>(m_page - 1)];
    const bool isOtherDesign = page.design != m_design;
    m_design = page.design;
    if (isOtherDesign || page.values.empty()) {
        m_texts = QStringList(static_cast<qsizetype>(Shown().fields.size()), QString());
        m_states.assign(Shown().checks.size(), 0);
    }
    for (const auto& [name, value] : page.values) {
        for (std::size_t slot = 0; slot < Shown().fields.size(); ++slot)
            if (Shown().fields[slot].name == name) m_texts[static_cast<qsizetype>(slot)] = value;
        for (std::size_t slot = 0; slot < Shown().checks.size(); ++slot)
            if (Shown().checks[slot].name == name) SetState(static_cast<int>(slot), value);
    }
}

void ImportModel::SavePage() {
    ModelPage& page = m_form.pages[static_cast<std::size_t>(m_page - 1)];
    page = {m_design, {}};
    for (std::size_t slot = 0; slot < Shown().fields.size(); ++slot)
        page.values.emplace_back(Shown().fields[slot].name, m_texts[static_cast<qsizetype>(slot)]);
    for (std::size_t slot = 0; slot < Shown().checks.size(); ++slot)
        page.values.emplace_back(Shown().checks[slot].name, QString::number(m_states[slot]));
}

void ImportModel::AddPage(int design, int position) {
    if (--m_mostPages < 0) throw Endless{};
    m_form.pages.insert(m_form.pages.begin() + (position - 1), ModelPage{design, {}});
    m_page = position;
    LoadPage();
}

void ImportModel::SetState(int slot, const QString& text) {
    constexpr int kMostOf16Bits = 32767;
    int state = RoundedToEven(std::abs(ModelNumber(text)));
    if (state > kMostOf16Bits) state = 0;  // a number that doesn't fit is taken for none
    if (state < Shown().checks[static_cast<std::size_t>(slot)].states)
        m_states[static_cast<std::size_t>(slot)] = state;
}

QString ImportModel::LastValueOf(int design, const QString& name) const {
    for (auto page = m_form.pages.rbegin(); page != m_form.pages.rend(); ++page) {
        if (page->design != design) continue;
        for (const auto& [own, value] : page->values)
            if (own == name) return value;
        return {};
    }
    return {};
}

void ImportModel::UpdateFormulas() {
    SavePage();
    for (std::size_t slot = 0; slot < Shown().fields.size(); ++slot) {
        const ModelRecord& field = Shown().fields[slot];
        QString& text = m_texts[static_cast<qsizetype>(slot)];
        if (field.constant) text = *field.constant;
        if (!field.copied.isEmpty()) text = LastValueOf(m_design, field.copied);
    }
}

void ImportModel::RecalculateAll() {
    SavePage();
    for (ModelPage& page : m_form.pages) {
        const ModelDesign& design = m_form.designs[static_cast<std::size_t>(page.design - 1)];
        for (auto& [name, value] : page.values)
            for (const ModelRecord& field : design.fields) {
                if (field.name != name) continue;
                if (field.constant) value = *field.constant;
                for (const auto& [other, source] : page.values)
                    if (!field.copied.isEmpty() && other == field.copied) value = source;
            }
    }
    LoadPage();
}

// One run, or two.

void ImportModel::ImportLinked() {
    int companion = 0;
    QString second;
    for (const QStringList& link : m_form.links) {
        if (link.value(0) != Shown().title) continue;
        second = link.value(1);
        for (std::size_t design = 0; design < m_form.designs.size() && !m_linkedNext; ++design) {
            if (m_form.designs[design].title != second) continue;
            companion = static_cast<int>(design) + 1;
            m_linkedNext = m_page + 1;
        }
        break;
    }
    if (!m_linkedNext) return;
    Run(false);
    m_page = *m_linkedNext;
    const bool isThere = m_page <= static_cast<int>(m_form.pages.size());
    if (isThere) LoadPage();
    if (!isThere || Shown().title != second) AddPage(companion, *m_linkedNext);
    Run(true);
    m_linkedNext.reset();
}

void ImportModel::Run(bool isLinked) {
    ++m_outcome.runs;
    m_columns.clear();
    m_keys.clear();
    m_previous.clear();
    m_line = 0;
    m_maxLine = 0;
    Bind();
    m_outcome.columns = std::max(m_outcome.columns, static_cast<int>(m_columns.size()));
    const QStringList keys = KeyNames();
    MoveToFront(keys);
    for (const int row : ModelOrder(m_table, keys)) {
        ++m_outcome.records;
        PourRecord(row, isLinked);
        UpdateFormulas();
    }
    RecalculateAll();
}

void ImportModel::Bind() {
    for (int number = 0; number < m_table.names.size(); ++number)
        BindColumn(number);
}

void ImportModel::BindColumn(int number) {
    const QString name = m_table.names[number];
    const QString target = name + u',' + m_folder;
    const bool isKnown = std::any_of(m_columns.begin(), m_columns.end(),
                                     [&](const Column& column) { return column.key == name.toLower(); });
    if (isKnown) return;  // of columns with equal names the first counts
    Column column{name.toLower(), number, {}};
    const auto bind = [&](const ModelRecord& record, int slot) {
        if (ModelTakes(record.dataSource, target)) Take(column, {&record, slot}, name);
    };
    for (std::size_t slot = 0; slot < Shown().fields.size(); ++slot)
        bind(Shown().fields[slot], static_cast<int>(slot));
    for (std::size_t slot = 0; slot < Shown().checks.size(); ++slot)
        bind(Shown().checks[slot], static_cast<int>(slot));
    if (!column.takers.empty()) m_columns.push_back(column);
}

void ImportModel::Take(Column& column, const Element& element, const QString& name) {
    column.takers.push_back(element);
    const int level = element.record->isCheck ? 0 : element.record->keyLevel;
    if (level <= 0) return;
    while (m_keys.size() < level)
        m_keys << QString();
    m_keys[level - 1] = name;
}

QStringList ImportModel::KeyNames() {
    QString first;
    for (const QString& name : m_keys)
        if (first.isEmpty()) first = name;
    if (m_keys.contains(QString())) ++m_outcome.runsWithoutKeyLevel;
    QString last = first;
    QStringList names;
    for (const QString& name : m_keys) {
        if (!name.isEmpty()) last = name;
        names << last;
    }
    return names;
}

void ImportModel::MoveToFront(const QStringList& keys) {
    for (std::size_t level = 0; level < static_cast<std::size_t>(keys.size()); ++level) {
        const QString key = keys[static_cast<qsizetype>(level)].toLower();
        const auto at = std::find_if(m_columns.begin(), m_columns.end(),
                                     [&](const Column& column) { return column.key == key; });
        const Column column = *at;
        m_columns.erase(at);
        const std::size_t place = std::min(level, m_columns.size());
        m_columns.insert(m_columns.begin() + static_cast<std::ptrdiff_t>(place), column);
    }
}

// One record.

void ImportModel::PourRecord(int row, bool isLinked) {
    do {
        m_fieldNumber = 1;
        m_undo.clear();
        for (const Column& column : m_columns) {
            const QString value = m_table.Value(row, column.number);
            if (!value.isEmpty()) PourColumn(column, value, isLinked);
            if (m_fieldNumber != 0) m_previous[column.key] = value;
            if (m_fieldNumber < 0) {
                m_previous.clear();
                m_fieldNumber = 0;
            }
            if (m_fieldNumber == 0) break;
            ++m_fieldNumber;
        }
    } while (m_fieldNumber == 0);
}

void ImportModel::PourColumn(const Column& column, const QString& value, bool isLinked) {
    for (const Element& element : column.takers) {
        m_maxLine = std::max(m_maxLine, element.record->line);
        if (IsNewPage(element, column, value)) return BeginPage(isLinked);
        if (IsNewLine(element, column, value)) return m_line == m_maxLine ? BeginPage(isLinked) : BeginLine();
        if (element.record->line == m_line) Write(element, column, value);
    }
}

bool ImportModel::HasPrevious(const Column& column) const {
    return m_previous.count(column.key) > 0;
}

bool ImportModel::IsNewPage(const Element& element, const Column& column, const QString& value) const {
    const ModelRecord& record = *element.record;
    if (record.isCheck) return false;
    if (record.newPageOnReoccur) return !m_texts[element.slot].isEmpty();
    return record.newPageOnChange && HasPrevious(column) && m_previous.at(column.key) != value;
}

bool ImportModel::IsNewLine(const Element& element, const Column& column, const QString& value) const {
    const ModelRecord& record = *element.record;
    if (record.isCheck || record.line != m_line) return false;
    const bool isFilled = !m_texts[element.slot].isEmpty();
    if (record.newLineOnReoccur) return isFilled;
    return record.newLineOnChange && HasPrevious(column) && isFilled && m_previous.at(column.key) != value;
}

void ImportModel::BeginPage(bool isLinked) {
    Undo();
    SavePage();
    if (isLinked) {
        // The first run may have added fewer pages than this one.
        m_linkedNext = std::min(*m_linkedNext + 2, static_cast<int>(m_form.pages.size()) + 1);
        AddPage(m_design, *m_linkedNext);
    } else {
        AddPage(m_design, static_cast<int>(m_form.pages.size()) + 1);
    }
    m_fieldNumber = -m_fieldNumber;
    m_line = 0;
}

void ImportModel::BeginLine() {
    Undo();
    ++m_line;
    m_fieldNumber = 0;
}

void ImportModel::Undo() {
    for (const Undone& undone : m_undo)
        m_texts[undone.slot] = undone.text;
}

void ImportModel::Write(const Element& element, const Column& column, const QString& value) {
    if (element.record->isCheck) return SetState(element.slot, value);
    const QString old = m_texts[element.slot];
    const QString type = m_table.types.value(column.number);
    QString text = value;
    if (type == QStringLiteral("BOOLEAN"))
        text = ModelNumber(value) == -1 ? QStringLiteral("True") : QStringLiteral("False");
    if (type == QStringLiteral("DATE")) text = ModelDate(value);
    m_texts[element.slot] = text;
    if (element.record->list.startsWith(u'@')) LookUp(element);
    if (m_texts[element.slot] != old) m_undo.push_back({element.slot, old});
}

void ImportModel::LookUp(const Element& element) {
    const QString name = element.record->list.mid(1).section(u',', 0, 0);
    const auto found = m_form.lists.find(name.toUpper());
    if (found == m_form.lists.end()) return;
    const ModelTable& list = found->second;
    const int column = list.ColumnOf(element.record->list.section(u',', 1, 1));
    for (int row = 0; row < static_cast<int>(list.rows.size()); ++row)
        if (list.Value(row, column) == m_texts[element.slot]) return FillFrom(list, name, row, element);
}

void ImportModel::FillFrom(const ModelTable& list, const QString& listName, int row, const Element& element) {
    for (std::size_t slot = 0; slot < Shown().fields.size(); ++slot) {
        const ModelRecord& field = Shown().fields[slot];
        if (static_cast<int>(slot) == element.slot || field.line != element.record->line) continue;
        for (const QString& source : ModelAlternatives(field.dataSource))
            if (IsSameModelPath(source.section(u',', 0, 0), listName))
                m_texts[static_cast<qsizetype>(slot)] =
                    list.Value(row, list.ColumnOf(source.section(u',', 1, 1)));
    }
}

}  // namespace sheetwright

#include "document/design_walk.h"

#include "core/text.h"
#include "document/page_lines.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QStringView kBegin = u"BEGIN";
constexpr QStringView kEnd = u"END";
constexpr QStringView kPageKind = u"PAGE";

// Behind the word and the blank that follows it.
QStringView KindBehind(QStringView line, QStringView word) {
    return KindOf(line.sliced(std::min(line.size(), word.size() + 1)));
}

}  // namespace

DesignLine CutDesignLine(QStringView line) {
    using Type = DesignLine::Type;
    if (line.isEmpty()) return {};
    if (line.startsWith(kBegin)) return {Type::Begin, KindBehind(line, kBegin), {}, {}};
    if (line.startsWith(kEnd)) return {Type::End, KindBehind(line, kEnd), {}, {}};
    return {Type::Key, {}, KeyOf(line), ValueOf(line)};
}

DesignWalk::DesignWalk(const PageLines& design) {
    for (int number = 1; number <= design.Count(); ++number)
        Take(CutDesignLine(design.Line(number)), number);
    for (Bag& bag : m_bags)
        bag.count = bag.keys->Count();
}

void DesignWalk::Rewind() {
    for (const Bag& bag : m_bags)
        while (bag.keys->Count() > bag.count)
            bag.keys->Remove(bag.keys->Count());
}

bool DesignWalk::BringsKey(QStringView key) const {
    return std::ranges::any_of(m_bags, [&](const Bag& bag) {
        const auto& entries = bag.keys->Entries();
        return std::any_of(entries.begin(), entries.begin() + bag.count, [&](const auto& entry) {
            return entry.key.compare(key, Qt::CaseInsensitive) == 0;
        });
    });
}

void DesignWalk::Take(const DesignLine& line, int number) {
    switch (line.type) {
        case DesignLine::Type::Empty:
            break;
        case DesignLine::Type::Begin:
            Begin(line.kind, number);
            break;
        case DesignLine::Type::End:
            End(line.kind, number);
            break;
        case DesignLine::Type::Key:
            AddKey(line.key, line.value, number);
            break;
    }
}

void DesignWalk::Begin(QStringView kind, int line) {
    using Action = DesignStep::Action;
    if (m_kind == kPageKind) {
        m_bags.back().isInUse = true;
        m_steps.push_back({Action::PageKeys, line, m_kind, m_bags.back().keys, {}, {}});
    }
    m_kind = kind.toString();
    m_bags.emplace_back();
    m_steps.push_back({Action::Open, line, m_kind, m_bags.back().keys, {}, {}});
}

void DesignWalk::End(QStringView kind, int line) {
    if (kind == kPageKind) return;
    m_bags.back().isInUse = true;
    m_steps.push_back({DesignStep::Action::Close, line, kind.toString(), m_bags.back().keys, {}, {}});
}

void DesignWalk::AddKey(QStringView key, QStringView value, int line) {
    using Action = DesignStep::Action;
    const Bag& bag = m_bags.back();
    if (!bag.isInUse && !bag.keys->Contains(key)) {
        bag.keys->Add(m_texts.Shared(value), m_texts.Shared(key));
    } else {
        const Action action = bag.isInUse ? Action::LateKey : Action::EqualKey;
        m_steps.push_back({action, line, {}, bag.keys, key.toString(), value.toString()});
    }
}

}  // namespace sheetwright

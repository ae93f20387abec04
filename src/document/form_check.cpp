#include "document/form_check.h"

#include "core/keyed_collection.h"
#include "core/paths.h"
#include "core/quoted.h"
#include "core/text.h"
#include "document/form_outline.h"
#include "document/page_lines.h"
#include "document/record_rules.h"
#include "formula/formula_check.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace sheetwright {

namespace {

// The picture that stands for the user's own logo; forms reserve a place with it and don't bring it along.
bool IsReservedLogo(QStringView picture) {
    return picture.startsWith(u"companylogo.bmp");
}

bool IsNamed(const RecordOutline& record) {
    return record.kind == u"FIEL" || record.kind == u"CHEC";
}

using CaseInsensitiveSet =
    std::unordered_map<QStringView, const RecordOutline*, CaseInsensitiveHash, CaseInsensitiveEqual>;

// Elements of one design page by name: what a data line can belong to.
CaseInsensitiveSet ElementsOf(const DesignOutline& page) {
    CaseInsensitiveSet elements;
    for (const RecordOutline& record : page.records)
        if (IsNamed(record)) elements.emplace(record.Value(u"Name"), &record);
    return elements;
}

ReferenceTargets TargetsOf(const FormOutline& outline) {
    ReferenceTargets targets;
    for (const QString& title : outline.titles)
        targets.AddTitle(title);
    for (const DesignOutline& page : outline.designs)
        for (const RecordOutline& record : page.records)
            if (IsNamed(record)) targets.AddName(page.number, record.Value(u"Name").toString());
    return targets;
}

class DesignCheck {
  public:
    DesignCheck(const DesignOutline& page, const FormCheckSetting& setting, const ReferenceTargets& targets,
                const FindingReport& report)
        : m_page(page), m_setting(setting), m_targets(targets), m_report(report) {}

    void Run() {
        const auto reportOnPage = [&](const QString& text) { ReportOn(QStringLiteral("page"), text); };
        if (!m_page.hasTitle) reportOnPage(QStringLiteral("Title is missing"));
        CheckKeys(u"PAGE", m_page.keys, m_setting.words, reportOnPage);
        CheckStationery();
        CheckPaper();
        for (const RecordOutline& record : m_page.records)
            CheckRecord(record);
    }

  private:
    void ReportOn(const QString& element, const QString& text) {
        m_report({QString::number(m_page.number), element, text});
    }

    void CheckRecord(const RecordOutline& record) {
        const QString element = record.Label();
        CheckKeys(record.kind, record.keys, m_setting.words,
                  [&](const QString& text) { ReportOn(element, text); });
        if (IsNamed(record)) {
            CheckName(record.Value(u"Name"), element);
            CheckUnique(m_tabIndexes, u"TabIdx", record.Value(u"TabIdx"), element);
        }
        if (record.kind == u"PICT") CheckPicture(record.Value(u"Picture"), element);
        CheckFormulaOf(record, element);
    }

    void CheckName(QStringView name, const QString& element) {
        if (name.isEmpty()) return;
        CheckUnique(m_names, u"Name", name, element);
        if (name.contains(u'='))
            ReportOn(element, QStringLiteral("Name holds \"=\", so its value can't be read back"));
        if (name.startsWith(u' ') || name.startsWith(u'\t'))
            ReportOn(element, QStringLiteral("Name begins with a blank, so its value can't be read back"));
        for (const QStringView start : {u"BEGIN PAGE", u"END PAGE"})
            if (name.startsWith(start))
                ReportOn(
                    element,
                    QStringLiteral("Name begins with \"%1\", so its value can't be read back").arg(start));
    }

    using Seen = std::unordered_map<QStringView, QString, CaseInsensitiveHash, CaseInsensitiveEqual>;

    void CheckUnique(Seen& seen, QStringView key, QStringView value, const QString& element) {
        if (value.isEmpty()) return;
        const auto [first, isNew] = seen.emplace(value, element);
        if (isNew) return;
        const bool isOther = first->second != element;
        ReportOn(element,
                 isOther ? QStringLiteral("%1 %2 is also that of %3").arg(key, Quoted(value), first->second)
                         : QStringLiteral("%1 %2 stands on the page twice").arg(key, Quoted(value)));
    }

    void CheckPicture(QStringView picture, const QString& element) {
        if (picture.isEmpty() || IsReservedLogo(picture)) return;
        const QString name = GetFileName(picture.toString());
        if (!m_setting.hasPicture(name))
            ReportOn(element, QStringLiteral("picture %1 is not in the archive").arg(Quoted(name)));
    }

    // The image of preprinted paper is the first field of the page's stationery.
    void CheckStationery() {
        const auto isStationery = [](const KeyLine& line) { return line.key == u"PrePrinted"; };
        const auto found = std::ranges::find_if(m_page.keys, isStationery);
        if (found == m_page.keys.end()) return;
        const qsizetype bar = found->value.indexOf(u'|');
        CheckPicture(bar < 0 ? found->value : found->value.first(bar), QStringLiteral("page"));
    }

    // The page would take the size of whatever paper came before.
    void CheckPaper() {
        const std::optional<int> code = PageNumberOf(u"PaperSize");
        const std::optional<int> orientation = PageNumberOf(u"Orientation");
        if (!m_setting.hasPaper || !code || !orientation || m_setting.hasPaper(*code, *orientation)) return;
        ReportOn(
            QStringLiteral("page"),
            QStringLiteral("papersizes.csv has no paper %1 of orientation %2").arg(*code).arg(*orientation));
    }

    [[nodiscard]] std::optional<int> PageNumberOf(QStringView key) const {
        const auto found = std::ranges::find(m_page.keys, key, &KeyLine::key);
        const std::optional<double> number =
            found == m_page.keys.end() ? std::nullopt : FormNumber(found->value);
        const bool isCode = number && *number == std::floor(*number) &&
                            std::abs(*number) <= std::numeric_limits<std::int16_t>::max();
        return isCode ? std::optional(static_cast<int>(*number)) : std::nullopt;
    }

    void CheckFormulaOf(const RecordOutline& record, const QString& element) {
        const QStringView formula = record.Value(u"Formula");
        if (formula.isEmpty()) return;
        for (const QString& text : CheckFormula(DecodeLineBreaks(formula), m_targets, m_setting.conventions))
            ReportOn(element, QStringLiteral("Formula: ") + text);
    }

    const DesignOutline& m_page;
    const FormCheckSetting& m_setting;
    const ReferenceTargets& m_targets;
    const FindingReport& m_report;
    Seen m_names;
    Seen m_tabIndexes;
};

// Goes through the data section line by line.
class DataCheck {
  public:
    DataCheck(const FormOutline& outline, const FindingReport& report)
        : m_outline(outline), m_report(report) {}

    void Take(QStringView line) {
        if (IsPageHeader(line)) {
            BeginPage(line);
        } else if (m_number > 0 && !line.isEmpty() && !line.startsWith(u"END PAGE")) {
            TakeValue(line);
        }
    }

  private:
    void ReportOn(const QString& element, const QString& text) {
        m_report({QStringLiteral("data %1").arg(m_number), element, text});
    }

    void BeginPage(QStringView line) {
        constexpr QStringView kDesign = u" DESIGN=";
        const QStringView rest = line.sliced(std::min(kPageNumberAt, line.size()));
        const qsizetype at = rest.indexOf(kDesign);
        bool isNumber = false;
        bool isDesign = false;
        const int number = rest.first(std::max<qsizetype>(at, 0)).toInt(&isNumber);
        const int design = at < 0 ? 0 : rest.sliced(at + kDesign.size()).trimmed().toInt(&isDesign);
        m_elements = nullptr;
        if (!isNumber || !isDesign || number < 1 || number > std::numeric_limits<std::int16_t>::max()) {
            m_report({QStringLiteral("form"), QStringLiteral("data"),
                      QStringLiteral("%1 gives no page number and design").arg(Quoted(line))});
            m_number = 0;
            return;
        }
        const bool isInOrder = number == m_last + 1;
        m_last = number;
        m_number = number;
        if (!isInOrder) ReportOn(QStringLiteral("page"), QStringLiteral("pages are not numbered in order"));
        UseDesign(design);
    }

    void UseDesign(int design) {
        const auto known = m_outline.byNumber.constFind(design);
        if (known == m_outline.byNumber.constEnd()) {
            ReportOn(QStringLiteral("page"), QStringLiteral("there is no design page %1").arg(design));
            return;
        }
        auto elements = m_byDesign.find(design);
        if (elements == m_byDesign.end())
            elements = m_byDesign.emplace(design, ElementsOf(m_outline.designs[*known])).first;
        m_design = design;
        m_elements = &elements->second;
    }

    void TakeValue(QStringView line) {
        if (!line.contains(u'=')) {
            ReportOn(QStringLiteral("page"), QStringLiteral("line without \"=\": %1").arg(Quoted(line)));
            return;
        }
        if (m_elements == nullptr) return;
        const QStringView name = KeyOf(line);
        const auto element = m_elements->find(name);
        if (element == m_elements->end()) {
            ReportOn(Shortened(name),
                     QStringLiteral("design page %1 has no element of that name").arg(m_design));
        } else if (element->second->kind == u"CHEC") {
            CheckState(*element->second, ValueOf(line));
        }
    }

    void CheckState(const RecordOutline& box, QStringView value) {
        if (value.isEmpty()) return;
        const double states = FormNumber(box.Value(u"States")).value_or(2);
        const std::optional<double> state = FormNumber(value);
        if (!state || *state < 0 || *state >= states || *state != std::floor(*state))
            ReportOn(box.Label(), QStringLiteral("%1 is no state of the check box").arg(Quoted(value)));
    }

    const FormOutline& m_outline;
    const FindingReport& m_report;
    int m_last = 0;    // number of the page before
    int m_number = 0;  // of the page in hand; 0 before the first
    int m_design = 0;
    const CaseInsensitiveSet* m_elements = nullptr;  // none when the page's design is not there
    std::unordered_map<int, CaseInsensitiveSet> m_byDesign;
};

}  // namespace

void CheckForm(const QString& text, const FormCheckSetting& setting, const FindingReport& report) {
    const FormOutline outline = OutlineOf(text, report);
    const ReferenceTargets targets = TargetsOf(outline);
    for (const DesignOutline& page : outline.designs)
        DesignCheck(page, setting, targets, report).Run();

    DataCheck data(outline, report);
    for (QStringView rest = outline.data; !rest.isEmpty();) {
        const QStringView line = TakeFormLine(rest);
        if (line == u"END DATA") break;
        data.Take(line);
    }
}

}  // namespace sheetwright

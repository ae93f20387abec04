#include "document/form_outline.h"

#include "core/quoted.h"
#include "core/text.h"
#include "document/page_lines.h"

#include <algorithm>
#include <limits>

namespace sheetwright {

namespace {

constexpr qsizetype kKindLength = 4;

// Columns at which the word of a record and the word of its end begin, from 0.
constexpr qsizetype kWordAt = 6;
constexpr qsizetype kEndWordAt = 4;

QStringView From(QStringView line, qsizetype column) {
    return line.sliced(std::min(column, line.size()));
}

// Goes through the design section line by line.
class Outliner {
  public:
    Outliner(FormOutline& outline, const FindingReport& report) : m_outline(outline), m_report(report) {}

    void Take(QStringView line) {
        if (IsPageHeader(line)) {
            BeginPage(line);
        } else if (m_page == nullptr || line.isEmpty()) {
            return;
        } else if (line.startsWith(u"BEGIN")) {
            BeginRecord(From(line, kWordAt));
        } else if (line.startsWith(u"END")) {
            End(line);
        } else {
            TakeKey(line);
        }
    }

    void Finish() {
        if (m_page != nullptr) ReportOn(QStringLiteral("page"), QStringLiteral("END PAGE is missing"));
        m_page = nullptr;
    }

  private:
    void ReportOn(const QString& element, const QString& text) {
        m_report(
            {m_page == nullptr ? QStringLiteral("form") : QString::number(m_page->number), element, text});
    }

    [[nodiscard]] QString ElementInHand() const {
        return m_isInRecord ? m_page->records.back().Label() : QStringLiteral("page");
    }

    void BeginPage(QStringView line) {
        if (m_page != nullptr) CloseRecordLeftOpen();
        Finish();
        bool isNumber = false;
        const int number = From(line, kPageNumberAt).trimmed().toInt(&isNumber);
        if (!isNumber || number < 1 || number > std::numeric_limits<std::int16_t>::max()) {
            ReportOn(QStringLiteral("page"), QStringLiteral("%1 gives no page number").arg(Quoted(line)));
            return;
        }
        const auto known = m_outline.byNumber.constFind(number);
        const bool isKnown = known != m_outline.byNumber.constEnd();
        if (!isKnown) {
            m_outline.byNumber.insert(number, m_outline.designs.size());
            m_outline.designs.push_back({});
            m_outline.designs.back().number = number;
        }
        m_page = isKnown ? &m_outline.designs[*known] : &m_outline.designs.back();
        m_counts.clear();
        if (isKnown)
            ReportOn(QStringLiteral("page"), QStringLiteral("the page begins twice"));
        else if (number != static_cast<int>(m_outline.designs.size()))
            ReportOn(QStringLiteral("page"), QStringLiteral("pages are not numbered in order"));
    }

    void BeginRecord(QStringView word) {
        CloseRecordLeftOpen();
        RecordOutline record;
        record.word = word;
        record.kind = word.left(kKindLength);
        record.number = ++m_counts[record.kind.toString()];
        m_page->records.push_back(std::move(record));
        m_isInRecord = true;
    }

    void CloseRecordLeftOpen() {
        if (m_isInRecord)
            ReportOn(m_page->records.back().Label(),
                     QStringLiteral("END %1 is missing").arg(Shortened(m_page->records.back().word)));
        m_isInRecord = false;
    }

    void End(QStringView line) {
        const QStringView word = From(line, kEndWordAt);
        if (line.startsWith(u"END PAGE")) {
            CloseRecordLeftOpen();
            m_page = nullptr;
        } else if (!m_isInRecord) {
            ReportOn(QStringLiteral("page"), QStringLiteral("%1 ends nothing").arg(Quoted(line)));
        } else {
            RecordOutline& record = m_page->records.back();
            if (word.left(kKindLength) != record.kind)
                ReportOn(record.Label(),
                         QStringLiteral("BEGIN %1 is ended by %2").arg(Shortened(record.word), Quoted(line)));
            record.kind = word.left(kKindLength);
            m_isInRecord = false;
        }
    }

    void TakeKey(QStringView line) {
        if (!line.contains(u'=')) {
            ReportOn(ElementInHand(), QStringLiteral("line without \"=\": %1").arg(Quoted(line)));
            return;
        }
        const KeyLine key{KeyOf(line), ValueOf(line)};
        if (key.key == u"Title") TakeTitle(key.value);
        if (m_isInRecord) {
            m_page->records.back().keys.push_back(key);
        } else if (m_page->records.empty()) {
            m_page->keys.push_back(key);
        }
    }

    void TakeTitle(QStringView title) {
        if (m_page->hasTitle) {
            ReportOn(ElementInHand(), QStringLiteral("Title stands twice on the page"));
            return;
        }
        m_page->hasTitle = true;
        m_outline.titles << title.toString();
        if (m_isInRecord) ReportOn(ElementInHand(), QStringLiteral("the page's Title stands in an element"));
    }

    FormOutline& m_outline;
    const FindingReport& m_report;
    DesignOutline* m_page = nullptr;
    bool m_isInRecord = false;
    QHash<QString, int> m_counts;
};

}  // namespace

QStringView RecordOutline::Value(QStringView key) const {
    const auto found = std::ranges::find_if(
        keys, [&](const KeyLine& line) { return line.key.compare(key, Qt::CaseInsensitive) == 0; });
    return found == keys.end() ? QStringView() : found->value;
}

QString RecordOutline::Label() const {
    const QStringView name = Value(u"Name");
    return name.isEmpty() ? Shortened(word) + u' ' + QString::number(number) : Shortened(name);
}

FormOutline OutlineOf(QStringView text, const FindingReport& report) {
    FormOutline outline;
    Outliner outliner(outline, report);
    bool isEnded = false;
    while (!text.isEmpty() && !isEnded) {
        const QStringView line = TakeFormLine(text);
        isEnded = line == u"END DESIGN";
        if (!isEnded) outliner.Take(line);
    }
    outliner.Finish();
    outline.data = text;
    if (outline.designs.empty())
        report({QStringLiteral("form"), QStringLiteral("design"), QStringLiteral("there is no design page")});
    return outline;
}

}  // namespace sheetwright

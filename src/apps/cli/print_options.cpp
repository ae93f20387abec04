#include "apps/cli/print_options.h"

#include "core/atomic_file.h"
#include "core/paths.h"

#include <QFileInfo>

namespace sheetwright::cli {

namespace {

// None for an end that is left open.
std::optional<int> EndOf(const QString& choice, QStringView end) {
    if (end.isEmpty()) return std::nullopt;
    if (const std::optional<int> page = WholeNumber(end)) return page;
    throw UsageError(QStringLiteral("--pages wants A, A-B, A- or -B, not \"%1\"").arg(choice));
}

}  // namespace

PageChoice::PageChoice(const CommandLine& line) {
    const std::optional<QString> text = line.Value(u"pages");
    if (!text) return;
    m_text = *text;
    const qsizetype dash = m_text.indexOf(u'-');
    const QStringView whole(m_text);
    m_first = EndOf(m_text, dash < 0 ? whole : whole.left(dash));
    m_last = dash < 0 ? m_first : EndOf(m_text, whole.sliced(dash + 1));
    if (!m_first && !m_last)
        throw UsageError(QStringLiteral("--pages wants A, A-B, A- or -B, not \"%1\"").arg(m_text));
}

PageRange PageChoice::Of(std::int16_t pages) const {
    const int first = m_first.value_or(1);
    const int last = m_last.value_or(pages);
    const bool isChosen = m_first || m_last;
    if (isChosen && (first < 1 || first > last || last > pages))
        throw UsageError(
            QStringLiteral("there are no pages %1: the form has %2").arg(m_text, QString::number(pages)));
    return {static_cast<std::int16_t>(first), static_cast<std::int16_t>(last)};
}

void RequireEnding(const QString& target, const QString& ending) {
    if (!target.endsWith(ending, Qt::CaseInsensitive))
        throw UsageError(QStringLiteral("the name must end in %1: \"%2\"").arg(ending, target));
}

void RequireOtherThan(const QString& form, const QString& target) {
    const QFileInfo kept(OnDisk(form));
    if (!kept.exists()) return;  // two files that aren't there would count as one
    for (const QString& written : {target, target + kUnfinishedSuffix.toString()})
        if (kept == QFileInfo(OnDisk(written)))
            throw UsageError(QStringLiteral("\"%1\" is the form itself").arg(written));
}

}  // namespace sheetwright::cli

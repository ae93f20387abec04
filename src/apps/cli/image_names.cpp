#include "apps/cli/image_names.h"

#include "apps/cli/command_line.h"
#include "apps/cli/print_options.h"

#include <QRegularExpression>

namespace sheetwright::cli {

ImageNames::ImageNames(const QString& pattern) : m_before(pattern) {
    RequireEnding(pattern, QStringLiteral(".png"));
    const QRegularExpression number(QStringLiteral("%(?:0([1-9]))?d"));
    const QRegularExpressionMatch found = number.match(pattern);
    if (!found.hasMatch()) return;
    m_isNumbered = true;
    m_before = pattern.left(found.capturedStart());
    m_behind = pattern.sliced(found.capturedEnd());
    if (found.hasCaptured(1)) m_digits = found.capturedView(1).toInt();
    if (number.match(m_behind).hasMatch())
        throw UsageError(QStringLiteral("--png wants one %d, not more: \"%1\"").arg(pattern));
}

QString ImageNames::Of(int page) const {
    return m_isNumbered ? m_before + QString::number(page).rightJustified(m_digits, u'0') + m_behind
                        : m_before;
}

}  // namespace sheetwright::cli

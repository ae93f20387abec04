#pragma once

// References of formulas, {GROUP\subject,field}: fields of the document's pages, of the record of the last
// import, and of the current row of an attached list.

#include "formula/evaluation_context.h"
#include "formula/value.h"

#include <QString>
#include <QStringView>

#include <cstdint>

namespace sheetwright {

struct Reference {
    QString path;  // "GROUP\subject"
    QString field;
    qsizetype groupLength = 0;

    [[nodiscard]] QStringView Group() const { return QStringView(path).first(groupLength); }
    [[nodiscard]] QStringView Subject() const { return QStringView(path).sliced(groupLength + 1); }
    [[nodiscard]] bool IsGroup(QStringView name) const {
        return Group().compare(name, Qt::CaseInsensitive) == 0;
    }
};

// Takes a reference apart. Its first and last characters are dropped unseen. Raises 5 when it is shorter than
// those two and when there is no backslash.
[[nodiscard]] Reference ParseReference(QStringView expression, const Conventions& conventions);

[[nodiscard]] Value ResolveReference(const EvaluationContext& context, QStringView expression);

// Number (from 1) of the first design page with that title, 0 for none.
[[nodiscard]] std::int16_t DesignOf(const MemoryBlock& memory, QStringView title,
                                    Qt::CaseSensitivity sensitivity);

}  // namespace sheetwright

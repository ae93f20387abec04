#pragma once

// Pages from lines and lines from pages.

#include "document/page_lines.h"

#include <QStringList>

namespace sheetwright {

inline PageLines PageOf(const QStringList& lines) {
    PageLines page;
    for (const QString& line : lines)
        page.Append(line);
    return page;
}

inline QStringList TextsOf(const PageLines& page) {
    QStringList texts;
    for (int position = 1; position <= page.Count(); ++position)
        texts << page.Line(position).toString();
    return texts;
}

}  // namespace sheetwright

#pragma once

// The check of one formula for those who write templates. It reads the text exactly as the evaluator does and
// tells what the evaluator passes over in silence or fails on: a mistyped name, a blank, a reference to
// nothing.

#include "core/conventions.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace sheetwright {

// What references can name: the titles of the design pages in reading order, and the names on each page. The
// n-th title stands for design page n, as references resolve it.
class ReferenceTargets {
  public:
    void AddTitle(const QString& title);
    void AddName(int page, const QString& name);

    // Number (from 1) of the first page of that title; 0 for none.
    [[nodiscard]] int PageTitled(QStringView title, Qt::CaseSensitivity sensitivity) const;
    [[nodiscard]] bool HasName(int page, const QString& name) const;

  private:
    int m_titles = 0;
    QHash<QString, int> m_pages;        // by title
    QHash<QString, int> m_foldedPages;  // by title without regard to case
    QHash<int, QSet<QString>> m_names;  // by page
};

// What is wrong with `formula`, in the order of its text, each thing once. Raises nothing of its own; nesting
// of any depth is no harm.
[[nodiscard]] QStringList CheckFormula(const QString& formula, const ReferenceTargets& targets,
                                       const Conventions& conventions);

}  // namespace sheetwright

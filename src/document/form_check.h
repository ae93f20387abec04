#pragma once

// The check of a form's text for those who write templates. It reads the text by itself, leniently, so that
// it can also tell what is wrong with a form that can't be opened.

#include "core/conventions.h"

#include <QString>

#include <functional>

namespace sheetwright {

struct Finding {
    QString page;     // number of the design page; "data" and the number for a data page; "form"
    QString element;  // name of the element, its record word and number on the page, or "page"
    QString text;
};

using FindingReport = std::function<void(const Finding&)>;

struct FormCheckSetting {
    const Conventions& conventions;
    TruthWords words;
    std::function<bool(const QString& name)> hasPicture;  // whether the form brings that picture
    // Whether there is such a paper; without it papers are not checked.
    std::function<bool(int code, int orientation)> hasPaper;
};

// Reports each finding: what stands in the wrong place first, then page by page. Raises nothing of its own.
void CheckForm(const QString& text, const FormCheckSetting& setting, const FindingReport& report);

}  // namespace sheetwright

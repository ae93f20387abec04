#pragma once

// A lenient reading of a form's text for its check: records and keys as they stand, whatever is wrong with
// them. What stands in the wrong place is reported on the way. All slices are of the text given, which must
// live on.

#include "document/form_check.h"

#include <QHash>
#include <QString>
#include <QStringView>

#include <vector>

namespace sheetwright {

struct KeyLine {
    QStringView key;
    QStringView value;
};

struct RecordOutline {
    QStringView word;  // behind "BEGIN "
    QStringView kind;  // the four letters that decide, those behind "END "
    int number = 0;    // among the records of its word on the page, from 1
    std::vector<KeyLine> keys;

    // The value of the first key of that name, in any case; a null view for none.
    [[nodiscard]] QStringView Value(QStringView key) const;
    // The element's name, or its word and number; short enough for a message.
    [[nodiscard]] QString Label() const;
};

struct DesignOutline {
    int number = 0;
    bool hasTitle = false;
    std::vector<KeyLine> keys;  // of the page itself
    std::vector<RecordOutline> records;
};

struct FormOutline {
    std::vector<DesignOutline> designs;
    QHash<int, std::size_t> byNumber;  // index in `designs`
    QStringList titles;                // in reading order
    QStringView data;                  // the text behind the design section
};

[[nodiscard]] FormOutline OutlineOf(QStringView text, const FindingReport& report);

}  // namespace sheetwright

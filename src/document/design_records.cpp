#include "document/design_records.h"

#include "core/application.h"
#include "core/failure.h"
#include "formula/value_conversion.h"

namespace sheetwright {

const QString& RecordView::Text(QStringView key) const {
    return m_bag.At(key);
}

double RecordView::Number(QStringView key) const {
    return ToNumber(Text(key), m_application.conventions);
}

}  // namespace sheetwright

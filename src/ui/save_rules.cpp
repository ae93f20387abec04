#include "ui/save_rules.h"

#include "core/application.h"
#include "document/document.h"

namespace sheetwright {

bool CanSave(const frmSheetwright& document) {
    return !document.application.ViewerMode && !document.MyReadonly &&
           document.Tag.endsWith(QStringLiteral(".aff"), Qt::CaseInsensitive);
}

bool CanSaveAs(const frmSheetwright& document) {
    return !document.application.ViewerMode;
}

}  // namespace sheetwright

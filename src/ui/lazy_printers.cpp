#include "ui/lazy_printers.h"

#include <utility>

namespace sheetwright {

LazyPrinters::LazyPrinters(Application& application, std::function<QString()> documentName)
    : m_application(application), m_documentName(std::move(documentName)) {}

SpoolPrinters& LazyPrinters::Spool() const {
    if (!m_printers) m_printers = std::make_unique<SpoolPrinters>(m_application, m_documentName);
    return *m_printers;
}

}  // namespace sheetwright

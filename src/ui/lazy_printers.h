#pragma once

// The system's printers, asked for when somebody first wants to know: a spooler may be slow to answer, and
// the start waits for nobody.

#include "ui/spool_printer.h"

#include <functional>
#include <memory>

namespace sheetwright {

class LazyPrinters : public Printers {
  public:
    // As those of `SpoolPrinters`.
    explicit LazyPrinters(Application& application, std::function<QString()> documentName = {});

    [[nodiscard]] int Count() const override { return Spool().Count(); }
    [[nodiscard]] class Printer& Printer() override { return Spool().Printer(); }
    void FollowDefault() override { Spool().FollowDefault(); }

    [[nodiscard]] SpoolPrinters& Spool() const;
    [[nodiscard]] bool AreKnown() const { return m_printers != nullptr; }

  private:
    Application& m_application;
    std::function<QString()> m_documentName;
    mutable std::unique_ptr<SpoolPrinters> m_printers;
};

}  // namespace sheetwright

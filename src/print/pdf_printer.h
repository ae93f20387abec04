#pragma once

// A printer that gathers the documents of a job as pages of one PDF file, each with its own paper and
// orientation. It appears as a printer of 288 dots per inch without unprintable margin. Fonts are embedded
// and texts can be selected and searched. Pages go to the disk as they end: memory doesn't grow with them.

#include "print/device.h"

#include <QString>

#include <memory>

namespace sheetwright {

class Application;

class PdfPrinter : public Printer {
  public:
    // Writes beside `path` until `Finish`. `title` is what a reader shows. The first paper is A4, upright.
    // Raises 75 (also for an old file that is read-only), 70, 76, 61 or 57 when it can't.
    PdfPrinter(Application& application, const QString& path, const QString& title);
    // Without `Finish` no file is left and an old one of that name stays as it was.
    ~PdfPrinter() override;

    // Ends the open document and writes the rest of the file, which still stands beside its place, flushed to
    // the disk. Returns the number of pages. Raises 61 or 57 when any byte of the file, however long ago,
    // could not be written; such a file never comes to its place. What is drawn afterwards raises 482.
    int Complete();
    // Completes the file and puts it in place. Returns the number of pages; with none no file is written.
    // Raises what `Complete` raises, and 75 or 70 when the old file can't be replaced.
    int Finish();
    [[nodiscard]] int PageCount() const;

    [[nodiscard]] double Width() const override;
    [[nodiscard]] double Height() const override;
    [[nodiscard]] double TwipsPerPixelX() const override { return 5; }
    [[nodiscard]] double TwipsPerPixelY() const override { return 5; }
    void EndDoc() override;
    [[nodiscard]] std::int16_t Orientation() const override;
    void SetOrientation(std::int16_t orientation) override;
    [[nodiscard]] std::int16_t PaperSize() const override;
    // Knows the papers of the paper table.
    void SetPaperSize(std::int16_t code) override;
    [[nodiscard]] QString DriverName() const override;

  protected:
    void Draw(DrawnItem item) override;
    void Touch() override;

  private:
    struct Job;
    std::unique_ptr<Job> m_job;
};

// The one printer there is while a job goes to a PDF file. Restores what was installed before at its end.
class OnlyPrinter : public Printers {
  public:
    OnlyPrinter(Application& application, class Printer& printer);
    ~OnlyPrinter() override;

    [[nodiscard]] int Count() const override { return 1; }
    [[nodiscard]] class Printer& Printer() override { return m_printer; }
    void FollowDefault() override {}

  private:
    Application& m_application;
    class Printer& m_printer;
    Printers* m_before;
};

}  // namespace sheetwright

#pragma once

// The printers of this machine, through the system's spooler. Each document is a job of its own, so that
// paper and orientation may change from one to the next.

#include "print/device.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QPrinter;

namespace sheetwright {

class Application;

class SpoolPrinter : public Printer {
  public:
    // `documentName` tells how the next job is called in the queue; without one, or where it tells "", jobs
    // bear the program's title.
    SpoolPrinter(Application& application, const QString& queue, std::function<QString()> documentName = {});
    // A document that is still open is sent as far as it goes: a spooler forgets nothing that it was told.
    ~SpoolPrinter() override;

    // Sends the documents that open from now on to another queue, on that one's own paper, upright.
    void SetQueue(const QString& queue);
    [[nodiscard]] QString Queue() const;
    // What a printer dialog shows and sets: copies, sides, colour. Paper and orientation are those of each
    // form page.
    [[nodiscard]] QPrinter& Spool();

    // Twips of the whole sheet; positions count from its edge, not from the printable area.
    [[nodiscard]] double Width() const override;
    [[nodiscard]] double Height() const override;
    [[nodiscard]] double TwipsPerPixelX() const override;
    [[nodiscard]] double TwipsPerPixelY() const override;
    // Raises 482 when the spooler refuses the job.
    void EndDoc() override;
    [[nodiscard]] std::int16_t Orientation() const override;
    void SetOrientation(std::int16_t orientation) override;
    [[nodiscard]] std::int16_t PaperSize() const override;
    // A queue that lists no papers takes every paper that has a known size.
    void SetPaperSize(std::int16_t code) override;
    // Make and model, or the queue's name where there is no driver to tell them.
    [[nodiscard]] QString DriverName() const override;

  protected:
    // Raise 482 when a document can't be opened.
    void Draw(DrawnItem item) override;
    void Touch() override;

  private:
    struct Job;
    std::unique_ptr<Job> m_job;
};

class SpoolPrinters : public Printers {
  public:
    explicit SpoolPrinters(Application& application, std::function<QString()> documentName = {});
    ~SpoolPrinters() override;

    // As the system told them when it was asked last: on construction and by `FollowDefault`.
    [[nodiscard]] int Count() const override { return static_cast<int>(m_queues.size()); }
    // Always the same object.
    [[nodiscard]] class Printer& Printer() override { return Spooled(); }
    [[nodiscard]] SpoolPrinter& Spooled();
    // The queue that a person chose last counts as the system's default for as long as it is there.
    void FollowDefault() override;
    void Choose(const QString& queue) { m_chosen = queue; }

  private:
    [[nodiscard]] QString DefaultQueue() const;

    Application& m_application;
    std::function<QString()> m_documentName;
    QStringList m_queues;
    QString m_chosen;
    std::unique_ptr<SpoolPrinter> m_printer;
};

}  // namespace sheetwright

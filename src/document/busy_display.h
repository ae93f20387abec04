#pragma once

// What a person sees while the engine is busy with a document, put back whatever ends the work.

#include "core/user_interface.h"

#include <utility>

namespace sheetwright {

// A document that a pass or job goes through: it must not be closed meanwhile.
class BusyDocument {
  public:
    explicit BusyDocument(int& busy) : m_busy(busy) { ++m_busy; }
    ~BusyDocument() { --m_busy; }
    BusyDocument(const BusyDocument&) = delete;
    BusyDocument& operator=(const BusyDocument&) = delete;

  private:
    int& m_busy;
};

// The hourglass; the normal pointer afterwards.
class HourglassPointer {
  public:
    explicit HourglassPointer(UserInterface& ui) : m_ui(ui) { m_ui.SetPointer(Pointer::Hourglass); }
    ~HourglassPointer() { m_ui.SetPointer(Pointer::Normal); }
    HourglassPointer(const HourglassPointer&) = delete;
    HourglassPointer& operator=(const HourglassPointer&) = delete;

  private:
    UserInterface& m_ui;
};

// A progress bar that is hidden at the latest when it goes out of scope.
class ShownProgress {
  public:
    explicit ShownProgress(UserInterface& ui) : m_bar(ui) {}
    ~ShownProgress() { Hide(); }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

    void Update(qint64 done, qint64 total) { m_bar.Update(done, total); }
    void Hide() {
        if (std::exchange(m_isShown, false)) m_bar.Hide();
    }

  private:
    ProgressBar m_bar;
    bool m_isShown = true;
};

}  // namespace sheetwright

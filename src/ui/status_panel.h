#pragma once

// The first panel of the status bar: the status text, with the progress bar laid over its free right part.

#include <QElapsedTimer>
#include <QLabel>

class QProgressBar;

namespace sheetwright {

class StatusPanel : public QLabel {
  public:
    explicit StatusPanel(QWidget* parent = nullptr);

    // Seen at once, also while the program is busy. Of a count that runs quicker than anybody can read, some
    // are seen.
    void ShowStatus(const QString& text);

    void ShowProgress();
    void SetProgress(int percent);
    // A word on the bar, until the next one is shown: how what it shows can be stopped.
    void ShowOnProgress(const QString& text);
    void HideProgress();
    [[nodiscard]] const QProgressBar& Progress() const { return *m_progress; }

    // Any status text fits in, since the bar and the panel give way.
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void PlaceProgress();

    QProgressBar* m_progress;
    QElapsedTimer m_sincePainted;
};

}  // namespace sheetwright

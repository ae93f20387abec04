#pragma once

// What a person sees while the program starts: the product's name, which product of the line it is, its
// version. It waits for nothing.

#include <QPixmap>
#include <QWidget>

class QLabel;

namespace sheetwright {

class Application;

class SplashWindow : public QWidget {
  public:
    explicit SplashWindow(const Application& application);

    // Such as "Viewer", already translated; "Sheetwright" until then.
    void SetProductLine(const QString& text);

    [[nodiscard]] bool WasPainted() const { return m_wasPainted; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QLabel* Line(const char* name, const QString& text, int height);  // of its font, pixels

    QPixmap m_drawing;
    QLabel* m_lblProductLine;
    bool m_wasPainted = false;
};

}  // namespace sheetwright

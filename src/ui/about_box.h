#pragma once

// The About box: which program this is.

#include <QDialog>

class QBoxLayout;

namespace sheetwright {

class Application;

class AboutBox : public QDialog {
  public:
    AboutBox(const Application& application, QWidget* parent);

  private:
    void BuildEmblem(QBoxLayout& row, bool isViewer);
    void BuildTexts(QBoxLayout& row, const Application& application);
    void BuildButton(QBoxLayout& column, const Application& application);
};

// Shows the box, modally.
void ShowAbout(QWidget* parent, const Application& application);

}  // namespace sheetwright

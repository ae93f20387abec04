#pragma once

// `lvNew`: the templates and folders of a folder, to choose one from.

#include <QListWidget>
#include <QString>

#include <functional>

namespace sheetwright {

class Application;

class TemplateList : public QListWidget {
  public:
    // Empty until `UpdateNewList`. `application` lives longer.
    TemplateList(const Application& application, QWidget* parent);

    // Told the path of a template that was double-clicked.
    std::function<void(const QString& path)> Chosen;

    // Shows a folder: the one above it first, then its folders and its templates, each by name. Instead of a
    // folder "DATA" that is not there, the one that it would lie in shows. False for one that can't be read;
    // the list is then as it was.
    bool UpdateNewList(const QString& folder);

    // As a double click on the selected row: opens a folder, tells of a template. Without one nothing
    // happens.
    void OpenSelected();

  protected:
    // Enter opens what is selected.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void OpenFolder(const QString& folder);
    void AddRow(const QString& text, const QString& path, bool isFolder, const QIcon& icon);

    const Application& m_application;
};

}  // namespace sheetwright

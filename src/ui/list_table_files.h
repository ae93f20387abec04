#pragma once

// The list that the window shows and its file: opened, saved, left.

#include "fields/list_file.h"

#include <QString>

#include <functional>
#include <memory>

class QUndoStack;

namespace sheetwright {

class Application;
class ListTableModel;

class ListTableFiles {
  public:
    // Begins with a new list.
    ListTableFiles(Application& application, ListTableModel& model, QUndoStack& stack);

    // Another list is shown, or the same under another name.
    std::function<void()> Shown;

    [[nodiscard]] const ListFile& File() const { return *m_file; }
    [[nodiscard]] QString Name() const;  // of the file, without its folder; that of new lists for none

    // Each asks about changes first. What can't be opened leaves the list that is shown.
    void New();
    void Open();
    void OpenFile(const QString& path);

    // False when the list is not saved: the person has decided so, or was told why. The commands raise the
    // failures of writing as well.
    bool Save();
    bool SaveAs();
    // Asks about changes and saves them if that is wanted. False when the list has to stay.
    [[nodiscard]] bool MayLeave();

  private:
    void Load(const QString& path);
    void Show(std::unique_ptr<ListFile> file);
    [[nodiscard]] bool Ask(const QString& question);
    [[nodiscard]] QString ListsFolder() const;
    bool SaveTo(const QString& path);

    Application& m_application;
    ListTableModel& m_model;
    QUndoStack& m_stack;
    std::unique_ptr<ListFile> m_file;
};

}  // namespace sheetwright

#pragma once

// The dialog in which a person chooses a file to open or to save to.

#include <QStringList>

class QWidget;

namespace sheetwright {

struct FileDialog;

// The entries of a filter "words|patterns|words|patterns" as the desktop's dialogs take them: words and
// patterns in brackets, "Pictures (*.png *.bmp)". Words without patterns stand for all files.
[[nodiscard]] QStringList NameFilters(const QString& filter);

enum class FileChoice { Open, Save };

// Shows the dialog, modally. Raises 32755 when it is cancelled; `dialog` is then as it was.
void ChooseFile(FileDialog& dialog, QWidget* parent, FileChoice choice = FileChoice::Open);

}  // namespace sheetwright

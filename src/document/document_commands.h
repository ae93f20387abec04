#pragma once

// The commands that open and save a form in a window.

#include <QString>

#include <functional>
#include <memory>

namespace sheetwright {

class Application;
class frmSheetwright;

// Makes the window's document; called once the file is known to be there.
using MakeDocument = std::function<frmSheetwright&()>;
// Ends a window whose form could not be read.
using UnloadDocument = std::function<void(frmSheetwright&)>;

// Open a template as a new document, and a form as itself: the first page shows and its first field has the
// focus. Each tells a person why it opened nothing.
void OpenaftFile(Application& application, const QString& path, const MakeDocument& make,
                 const UnloadDocument& unload);
void OpenForm(Application& application, const QString& path, const MakeDocument& make,
              const UnloadDocument& unload);

// Saves the document to its tag. Asks before it replaces a file that is not the one that was read or saved
// last. A failure is told; the document then stays changed, the file on disk as it was.
void mnuFileSave_Click(frmSheetwright& document);

}  // namespace sheetwright

#pragma once

// The port through which the engine speaks to people: message boxes, status words, progress, the pointer. The
// desktop, the report engine, the command line and the tests each implement it.

#include <QString>

#include <cstdint>

namespace sheetwright {

enum class MessageIcon { None, Information, Exclamation, Critical, Question };
enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Yes, No, Cancel };
enum class Pointer { Normal, Hourglass };

// What the printer dialog shows at first, and what the person chose in it. Pages count from 1.
struct PrinterDialog {
    std::int16_t minimumPage = 1;
    std::int16_t maximumPage = 1;
    std::int16_t fromPage = 1;
    std::int16_t toPage = 1;
    std::int32_t flags = 0;  // 4 no selection, 256 return a device context, 1048576 hide print to file
};

// What file dialogs ask for, as bits of `FileDialog::flags`.
namespace dialogs {
inline constexpr std::int32_t kOverwritePrompt = 2;  // for saving: an existing file is asked about
inline constexpr std::int32_t kHideReadOnly = 4;
inline constexpr std::int32_t kKeepFolder = 8;             // the current folder stays
inline constexpr std::int32_t kExtensionMayDiffer = 1024;  // from the default extension
inline constexpr std::int32_t kPathMustExist = 2048;
inline constexpr std::int32_t kFileMustExist = 4096;
inline constexpr std::int32_t kExplorerStyle = 524288;
inline constexpr std::int32_t kLongNames = 2097152;
}  // namespace dialogs

// What a dialog for a file shows at first, and what the person chose in it.
struct FileDialog {
    QString title;
    QString defaultExtension;  // without a dot
    QString filter;            // "words|patterns|words|patterns"; patterns are separated by ";"
    int filterIndex = 1;       // from 1
    QString initialFolder;     // "" for the one that the system suggests
    std::int32_t flags = 0;    // see `dialogs`
    QString fileName;
};

class UserInterface {
  public:
    UserInterface() = default;
    UserInterface(const UserInterface&) = delete;
    UserInterface& operator=(const UserInterface&) = delete;
    virtual ~UserInterface() = default;

    // Texts and titles arrive translated.
    virtual MessageAnswer ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                                      MessageButtons buttons = MessageButtons::Ok) = 0;
    // Lets the person choose printer and pages; the choice becomes the system's default printer. Raises 32755
    // when it is cancelled.
    virtual void ShowPrinter(PrinterDialog& dialog) = 0;
    // Let the person choose a file to open, or one to save to: `fileName` and `filterIndex` become what was
    // chosen. Raise 32755 when it is cancelled.
    virtual void ShowOpen(FileDialog& dialog) = 0;
    virtual void ShowSave(FileDialog& dialog) = 0;
    virtual void SetPointer(Pointer pointer) = 0;
    virtual void SetStatus(const QString& text) = 0;
    [[nodiscard]] virtual QString Status() const = 0;  // what was set last

    virtual void ShowProgress() = 0;
    virtual void SetProgress(int percent) = 0;  // 0 to 100
    virtual void HideProgress() = 0;
    // Whether the person wants to stop what the progress bar shows; asked for while it is shown, often. Where
    // nobody can tell, nobody does.
    [[nodiscard]] virtual bool IsStopWanted() { return false; }

    virtual void PumpMessages() = 0;
    virtual void Beep() = 0;

    // A line for the program that drives this one, such as "EVENT: PRINT"; without one nobody hears it.
    virtual void TellHost(const QString& line) = 0;
};

// An interface on which nothing is seen and every question is answered by its first button;
// no file is chosen.
class SilentUserInterface : public UserInterface {
  public:
    MessageAnswer ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                              MessageButtons buttons) override;
    void ShowPrinter(PrinterDialog&) override {}  // all pages
    void ShowOpen(FileDialog& dialog) override;   // cancelled: nobody chooses
    void ShowSave(FileDialog& dialog) override;
    void SetPointer(Pointer) override {}
    void SetStatus(const QString& text) override { m_status = text; }
    [[nodiscard]] QString Status() const override { return m_status; }
    void ShowProgress() override {}
    void SetProgress(int) override {}
    void HideProgress() override {}
    void PumpMessages() override {}
    void Beep() override {}
    void TellHost(const QString&) override {}

  private:
    QString m_status;
};

// The progress bar of one operation: shown on construction, hidden on `Hide`. `Update` reaches the bar only
// when the whole-number percentage, capped at 100, differs from what it shows.
class ProgressBar {
  public:
    explicit ProgressBar(UserInterface& ui) : m_ui(ui) { m_ui.ShowProgress(); }
    void Update(qint64 done, qint64 total);
    void Hide() { m_ui.HideProgress(); }

  private:
    UserInterface& m_ui;
    int m_shown = 0;
};

}  // namespace sheetwright

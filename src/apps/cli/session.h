#pragma once

// What every verb works with: the application without windows, standard output, and the way a form is opened.

#include "apps/cli/output.h"
#include "apps/cli/scratch_folder.h"
#include "core/application.h"
#include "core/console_user_interface.h"
#include "core/failure.h"
#include "document/document.h"

#include <QString>

#include <exception>
#include <functional>
#include <memory>

namespace sheetwright::cli {

// The verb can't be done; the text says why, for standard error.
class CommandError : public std::exception {
  public:
    explicit CommandError(QString text) : m_text(std::move(text)) {}
    [[nodiscard]] const QString& Text() const noexcept { return m_text; }

  private:
    QString m_text;
};

class Session {
  public:
    // `installFolder` is where the executable and its data files lie.
    explicit Session(const QString& installFolder);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] Application& App() { return m_application; }
    [[nodiscard]] Output& Out() { return m_output; }

    // Reads a form and puts its first page "on screen", without a window. Raises CommandError for a file that
    // can't be opened or holds no design page, and what the reader raises.
    [[nodiscard]] std::unique_ptr<frmSheetwright> OpenForm(const QString& path);

    // The text member of a form, without reading it any further. Raises as OpenForm does.
    [[nodiscard]] QString FormText(const QString& path);

    // The boundary around work on forms: what `step` raises is told on standard error, and failures are
    // logged, with the form in hand. Returns whether nothing was raised. A UsageError travels.
    bool Guarded(QStringView sub, const std::function<void()>& step);

    // Says on standard error when parts of a design could not be drawn: nobody should sign a sheet from which
    // something is missing without a word.
    void WarnOfLostSteps() const;

  private:
    void Tell(QStringView sub, const Failure& caught);
    void TakeInHand(const QString& path);
    [[nodiscard]] CommandError Corrupt() const;

    ScratchFolder m_scratch;
    ConsoleUserInterface m_ui;
    Application m_application;
    Output m_output;
    QString m_formInHand;  // as it was named on the command line
};

// Raises CommandError for what is no file, or one that can't be read.
void RequireReadable(const Application& application, const QString& path);

// Raises CommandError unless the document has a data page of that number.
void RequirePage(const frmSheetwright& document, int page);

// The title of a design page; "" when it has none.
[[nodiscard]] QString TitleOf(const frmSheetwright& document, int design);

}  // namespace sheetwright::cli

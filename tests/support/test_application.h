#pragma once

// What engine tests stand on: an application in a temporary folder, an interface that records what it is
// told, and helpers to make files and to catch failures.

#include "core/application.h"
#include "core/failure.h"
#include "core/user_interface.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace sheetwright {

struct ShownMessage {
    QString text;
    QString title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    bool operator==(const ShownMessage&) const = default;
};

class RecordingUserInterface : public UserInterface {
  public:
    MessageAnswer ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                              MessageButtons buttons) override;
    void ShowPrinter(PrinterDialog& dialog) override {
        printerDialogs.push_back(dialog);
        if (onPrinterDialog) onPrinterDialog(dialog);
    }
    void ShowOpen(FileDialog& dialog) override {
        fileDialogs.push_back(dialog);
        if (!onFileDialog) throw Failure(failure::kCancelled);
        onFileDialog(dialog);
    }
    void ShowSave(FileDialog& dialog) override {
        ++saveDialogs;
        ShowOpen(dialog);
    }
    void SetPointer(Pointer newPointer) override {
        pointer = newPointer;
        pointers.push_back(newPointer);
    }
    void SetStatus(const QString& text) override { statuses << text; }
    [[nodiscard]] QString Status() const override { return statuses.value(statuses.size() - 1); }
    void ShowProgress() override { progressShown = true; }
    void SetProgress(int percent) override { progress.push_back(percent); }
    void HideProgress() override { progressShown = false; }
    [[nodiscard]] bool IsStopWanted() override { return onStopQuestion && onStopQuestion(); }
    void PumpMessages() override {
        ++pumps;
        if (onPump) onPump();
    }
    void Beep() override { ++beeps; }
    void TellHost(const QString& line) override { hostLines << line; }

    [[nodiscard]] QStringList MessageTexts() const;

    std::vector<ShownMessage> messages;
    QStringList statuses;
    std::vector<int> progress;
    bool progressShown = false;
    Pointer pointer = Pointer::Normal;
    int pumps = 0;
    int beeps = 0;
    std::vector<Pointer> pointers;
    QStringList hostLines;
    std::vector<PrinterDialog> printerDialogs;            // as they were shown
    std::function<void(PrinterDialog&)> onPrinterDialog;  // what the person does with one
    std::vector<FileDialog> fileDialogs;                  // as they were shown
    int saveDialogs = 0;                                  // how many of them were for saving
    std::function<void(FileDialog&)> onFileDialog;        // the same; without it the person cancels
    std::function<bool()> onStopQuestion;                 // whether the person stops what goes on
    std::function<void()> onPump;                         // the commands that come in then
    std::vector<MessageAnswer> answers;                   // given in order; then Ok or Yes
};

// A folder of its own for each test, with an application whose install folder it is.
class ApplicationTest : public ::testing::Test {
  protected:
    explicit ApplicationTest(const QString& title = QStringLiteral("Tolvane Quillon Sheetwright"));

    // Replaces the application by one with another title, in the same folder.
    void Restart(const QString& title);

    // Path of a file below the test's folder; folders on the way are made.
    [[nodiscard]] QString Path(const QString& name) const;
    QString Write(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] QByteArray Read(const QString& name) const;
    // Data rows of the error log as lists of its six columns' values.
    [[nodiscard]] std::vector<QStringList> ErrorRows() const;

    QTemporaryDir m_folder;
    RecordingUserInterface m_ui;
    std::unique_ptr<Application> m_application;
};

// The number of the failure that `step` raises; none when it raises none.
template <typename Step>
std::optional<int> FailureOf(Step&& step) {
    const std::optional<Failure> caught = Ignoring(std::forward<Step>(step));
    return caught ? std::optional<int>(caught->Number()) : std::nullopt;
}

// So that GoogleTest prints texts readably.
inline void PrintTo(const ShownMessage& message, std::ostream* out) {
    *out << '"' << message.text.toStdString() << "\" titled \"" << message.title.toStdString() << '"';
}

}  // namespace sheetwright

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

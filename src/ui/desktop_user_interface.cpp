#include "ui/desktop_user_interface.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "ui/file_dialog.h"
#include "ui/lazy_printers.h"
#include "ui/status_panel.h"

#include <QApplication>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace sheetwright {

namespace {

constexpr std::int32_t kNoSelection = 4;
constexpr std::int32_t kHidePrintToFile = 1048576;

// A dialog has the pointer of its own, also when a busy command asks.
class OwnPointer {
  public:
    explicit OwnPointer(bool isBusy) : m_isBusy(isBusy) {
        if (m_isBusy) QApplication::restoreOverrideCursor();
    }
    ~OwnPointer() {
        if (m_isBusy) QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    OwnPointer(const OwnPointer&) = delete;
    OwnPointer& operator=(const OwnPointer&) = delete;

  private:
    bool m_isBusy;
};

struct OfferedButton {
    MessageAnswer answer;
    QMessageBox::ButtonRole role;
};

std::span<const OfferedButton> Offered(MessageButtons buttons) {
    static constexpr std::array kAll{OfferedButton{MessageAnswer::Yes, QMessageBox::YesRole},
                                     OfferedButton{MessageAnswer::No, QMessageBox::NoRole},
                                     OfferedButton{MessageAnswer::Cancel, QMessageBox::RejectRole}};
    static constexpr std::array kOk{OfferedButton{MessageAnswer::Ok, QMessageBox::AcceptRole}};
    constexpr std::size_t kYesAndNo = 2;
    if (buttons == MessageButtons::Ok) return kOk;
    return std::span(kAll).first(buttons == MessageButtons::YesNo ? kYesAndNo : kAll.size());
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    static constexpr std::array kIcons{QMessageBox::NoIcon, QMessageBox::Information, QMessageBox::Warning,
                                       QMessageBox::Critical, QMessageBox::Question};
    return kIcons.at(static_cast<std::size_t>(icon));
}

void Dress(QPrintDialog& box, const PrinterDialog& dialog) {
    box.setOption(QAbstractPrintDialog::PrintSelection, (dialog.flags & kNoSelection) == 0);
    box.setOption(QAbstractPrintDialog::PrintToFile, (dialog.flags & kHidePrintToFile) == 0);
    box.setOption(QAbstractPrintDialog::PrintPageRange, true);
    box.setMinMax(dialog.minimumPage, dialog.maximumPage);
    box.setFromTo(dialog.fromPage, dialog.toPage);
}

void TakePages(const QPrintDialog& box, PrinterDialog& dialog) {
    if (box.printRange() != QAbstractPrintDialog::PageRange || box.fromPage() < 1) return;
    const auto within = [&](int page) {
        return static_cast<std::int16_t>(std::clamp<int>(page, dialog.minimumPage, dialog.maximumPage));
    };
    dialog.fromPage = within(box.fromPage());
    dialog.toPage = within(std::max(box.fromPage(), box.toPage()));
}

}  // namespace

DesktopUserInterface::~DesktopUserInterface() {
    SetPointer(Pointer::Normal);
}

void DesktopUserInterface::UseStatusPanel(StatusPanel& panel) {
    m_panel = &panel;
    panel.ShowStatus(m_status);
}

QString DesktopUserInterface::Words(MessageAnswer answer) const {
    static const Dictionary kEnglish;
    const Dictionary& words = m_application == nullptr ? kEnglish : m_application->dictionary;
    switch (answer) {
        case MessageAnswer::Yes:
            return words.Translate(QStringLiteral("&Yes"));
        case MessageAnswer::No:
            return words.Translate(QStringLiteral("&No"));
        case MessageAnswer::Cancel:
            return words.Translate(QStringLiteral("Cancel"));
        case MessageAnswer::Ok:
            break;
    }
    return words.Translate(QStringLiteral("OK"));
}

// Closing the box without a choice is its last button: Cancel, No, or OK where that is the only one.
MessageAnswer DesktopUserInterface::ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                                                MessageButtons buttons) {
    const OwnPointer pointer(m_isBusy);
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(IconOf(icon));
    const std::span<const OfferedButton> offered = Offered(buttons);
    std::vector<QAbstractButton*> shown;
    for (const OfferedButton& button : offered)
        shown.push_back(box.addButton(Words(button.answer), button.role));
    box.setDefaultButton(static_cast<QPushButton*>(shown.front()));
    box.setEscapeButton(shown.back());
    box.exec();
    const auto clicked = std::ranges::find(shown, box.clickedButton());
    const std::size_t at =
        clicked == shown.end() ? shown.size() - 1 : static_cast<std::size_t>(clicked - shown.begin());
    return offered[at].answer;
}

// Printing nothing must not pass in silence.
void DesktopUserInterface::TellOfNoPrinter() {
    if (m_application != nullptr)
        ShowMessage(m_application->Translate(QStringLiteral("No printer is installed.")),
                    m_application->Title, MessageIcon::Exclamation);
    throw Failure(failure::kCancelled);
}

void DesktopUserInterface::ShowPrinter(PrinterDialog& dialog) {
    if (m_printers == nullptr) throw Failure(failure::kCancelled);
    const OwnPointer pointer(m_isBusy);
    SpoolPrinters& printers = m_printers->Spool();
    printers.FollowDefault();
    if (printers.Count() == 0) TellOfNoPrinter();
    QPrinter& printer = printers.Spooled().Spool();
    QPrintDialog box(&printer, QApplication::activeWindow());
    Dress(box, dialog);
    if (box.exec() != QDialog::Accepted) throw Failure(failure::kCancelled);
    printers.Choose(printer.printerName());
    TakePages(box, dialog);
}

void DesktopUserInterface::ShowOpen(FileDialog& dialog) {
    const OwnPointer pointer(m_isBusy);
    ChooseFile(dialog, QApplication::activeWindow());
}

void DesktopUserInterface::ShowSave(FileDialog& dialog) {
    const OwnPointer pointer(m_isBusy);
    ChooseFile(dialog, QApplication::activeWindow(), FileChoice::Save);
}

void DesktopUserInterface::SetPointer(Pointer pointer) {
    const bool isBusy = pointer == Pointer::Hourglass;
    if (isBusy == m_isBusy) return;
    m_isBusy = isBusy;
    if (isBusy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

// The word that names the panel itself is no status.
void DesktopUserInterface::SetStatus(const QString& text) {
    if (text == QStringLiteral("Status")) return;
    m_status = text;
    if (m_panel) m_panel->ShowStatus(text);
}

void DesktopUserInterface::ShowProgress() {
    m_showsProgress = true;
    m_tellsOfStop = false;
    m_stopKey.Forget();
    if (m_panel) m_panel->ShowProgress();
}

void DesktopUserInterface::SetProgress(int percent) {
    if (m_panel) m_panel->SetProgress(percent);
}

void DesktopUserInterface::HideProgress() {
    m_showsProgress = false;
    if (m_panel) m_panel->HideProgress();
}

bool DesktopUserInterface::IsStopWanted() {
    if (!m_showsProgress) return false;
    if (m_panel && m_application != nullptr && !std::exchange(m_tellsOfStop, true))
        m_panel->ShowOnProgress(m_application->Translate(QStringLiteral("Esc stops")));
    return m_stopKey.WasPressed();
}

void DesktopUserInterface::PumpMessages() {
    if (m_isPumping) return;
    const QScopedValueRollback<bool> pumping(m_isPumping, true);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DesktopUserInterface::Beep() {
    QApplication::beep();
}

}  // namespace sheetwright

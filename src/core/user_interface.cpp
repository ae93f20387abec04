#include "core/user_interface.h"

#include "core/failure.h"

#include <algorithm>

namespace sheetwright {

MessageAnswer SilentUserInterface::ShowMessage(const QString& /*text*/, const QString& /*title*/,
                                               MessageIcon /*icon*/, MessageButtons buttons) {
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
}

void SilentUserInterface::ShowOpen(FileDialog& /*dialog*/) {
    throw Failure(failure::kCancelled);
}

void SilentUserInterface::ShowSave(FileDialog& /*dialog*/) {
    throw Failure(failure::kCancelled);
}

void ProgressBar::Update(qint64 done, qint64 total) {
    const qint64 percent = total <= 0 ? 100 : std::clamp<qint64>(done * 100 / total, 0, 100);
    if (percent == m_shown) return;
    m_shown = static_cast<int>(percent);
    m_ui.SetProgress(m_shown);
}

}  // namespace sheetwright

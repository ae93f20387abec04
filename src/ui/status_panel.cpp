#include "ui/status_panel.h"

#include <QProgressBar>
#include <QResizeEvent>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kGapBeforeBar = 16;  // pixels, 240 twips
constexpr int kGaps = 24;          // before and behind the bar
constexpr int kWholeBar = 100;
constexpr qint64 kBetweenCounts = 20;  // milliseconds

// Whether the texts differ in their numbers only.
bool IsCount(QStringView one, QStringView other) {
    const auto skipDigits = [](QStringView& text) {
        while (!text.isEmpty() && text.front().isDigit())
            text = text.sliced(1);
    };
    for (skipDigits(one), skipDigits(other); !one.isEmpty() && !other.isEmpty();
         skipDigits(one), skipDigits(other)) {
        if (one.front() != other.front()) return false;
        one = one.sliced(1);
        other = other.sliced(1);
    }
    return one.isEmpty() && other.isEmpty();
}

}  // namespace

StatusPanel::StatusPanel(QWidget* parent) : QLabel(parent), m_progress(new QProgressBar(this)) {
    setObjectName(QStringLiteral("sbStatusBar"));
    setTextFormat(Qt::PlainText);
    m_progress->setObjectName(QStringLiteral("pbPercent"));
    m_progress->setRange(0, kWholeBar);
    m_progress->setTextVisible(false);
    m_progress->hide();
}

void StatusPanel::ShowStatus(const QString& text) {
    if (text == this->text()) return;
    const bool isNextCount = IsCount(text, this->text());
    setText(text);
    PlaceProgress();
    if (isNextCount && m_sincePainted.isValid() && !m_sincePainted.hasExpired(kBetweenCounts)) return;
    m_sincePainted.start();
    repaint();
}

void StatusPanel::ShowProgress() {
    m_progress->setValue(0);
    m_progress->setTextVisible(false);
    m_progress->show();
    PlaceProgress();
    m_progress->repaint();
}

void StatusPanel::SetProgress(int percent) {
    m_progress->setValue(percent);
    m_progress->repaint();
}

void StatusPanel::ShowOnProgress(const QString& text) {
    m_progress->setFormat(text);
    m_progress->setTextVisible(true);
}

void StatusPanel::HideProgress() {
    m_progress->hide();
}

QSize StatusPanel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void StatusPanel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    PlaceProgress();
}

void StatusPanel::PlaceProgress() {
    const int textWidth = fontMetrics().horizontalAdvance(text());
    const int barHeight = std::max(height() * 2 / 3, 1);
    m_progress->setGeometry(textWidth + kGapBeforeBar, (height() - barHeight) / 2,
                            std::max(width() - textWidth - kGaps, 0), barHeight);
}

}  // namespace sheetwright

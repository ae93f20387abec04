#include "ui/download_window.h"

#include "core/application.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QVBoxLayout>
#include <QWindow>
#include <QtMath>

#include <utility>

namespace sheetwright {

namespace {

constexpr int kPause = 50;  // milliseconds
constexpr int kMargin = 18;
constexpr int kGap = 12;
constexpr int kColumns = 80;
constexpr int kLines = 12;
constexpr int kTabColumns = 8;

// Without a word what goes on is told as "busy", and nothing is counted.
QProgressBar* BusyBar(QWidget* parent) {
    auto* const bar = new QProgressBar(parent);
    bar->setObjectName(QStringLiteral("pbDownload"));
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    return bar;
}

QTextCursor EndOf(const QPlainTextEdit& output) {
    QTextCursor cursor(output.document());
    cursor.movePosition(QTextCursor::End);
    return cursor;
}

// Not while somebody has scrolled back, or marks what is to be copied.
bool FollowsTheEnd(const QPlainTextEdit& output) {
    return !output.textCursor().hasSelection() &&
           output.viewport()->rect().intersects(output.cursorRect(EndOf(output)));
}

void ReplaceOpenLine(QPlainTextEdit& output, const QString& text) {
    QTextCursor cursor = EndOf(output);
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

}  // namespace

DownloadWindow::DownloadWindow(const Application& application)
    : m_application(application),
      m_lblState(new QLabel(this)),
      m_txtOutput(new QPlainTextEdit(this)),
      m_cmdCancel(new QPushButton(application.Translate(QStringLiteral("Cancel")), this)) {
    setObjectName(QStringLiteral("DownloadWindow"));
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    Build();
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    connect(&m_pause, &QTimer::timeout, this, &DownloadWindow::ShowOutput);
    connect(m_cmdCancel, &QPushButton::clicked, this, &DownloadWindow::reject);
}

void DownloadWindow::Build() {
    m_lblState->setObjectName(QStringLiteral("lblState"));
    m_lblState->setTextFormat(Qt::PlainText);
    QProgressBar* const bar = BusyBar(this);
    bar->setAccessibleName(m_application.Translate(QStringLiteral("Progress")));
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    BuildOutput();
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(m_cmdCancel, QDialogButtonBox::RejectRole);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kGap);
    column->addWidget(m_lblState);
    column->addWidget(bar);
    column->addWidget(m_txtOutput, 1);
    column->addWidget(buttons);
}

void DownloadWindow::BuildOutput() {
    m_txtOutput->setObjectName(QStringLiteral("txtOutput"));
    m_txtOutput->setAccessibleName(m_application.Translate(QStringLiteral("Messages of the driver")));
    m_txtOutput->setReadOnly(true);
    m_txtOutput->setUndoRedoEnabled(false);
    m_txtOutput->setTabChangesFocus(true);
    m_txtOutput->setMaximumBlockCount(static_cast<int>(DownloadWindowText::kMostLines));
    m_txtOutput->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const QFontMetricsF metrics(m_txtOutput->font());
    const double breadth = metrics.horizontalAdvance(u'0');
    m_txtOutput->setTabStopDistance(kTabColumns * breadth);
    const double around = 2 * (m_txtOutput->document()->documentMargin() + m_txtOutput->frameWidth());
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_txtOutput);
    m_txtOutput->setMinimumSize(qCeil(kColumns * breadth + around) + bar,
                                qCeil(kLines * metrics.lineSpacing() + around));
}

void DownloadWindow::Begin(const QString& driver, std::function<void()> cancel) {
    m_cancel = std::move(cancel);
    m_text = {};
    m_txtOutput->clear();
    setWindowTitle(m_application.Translate(QStringLiteral("Download %1"), driver));
    m_lblState->setText(m_application.Translate(QStringLiteral("Downloading from %1..."), driver));
    m_cmdCancel->setEnabled(true);
    m_cmdCancel->setFocus();
    PutOverActiveWindow();
    show();
}

// It belongs to no window: it must outlive each.
void DownloadWindow::PutOverActiveWindow() {
    const QWidget* const active = QApplication::activeWindow();
    if (active == nullptr) return;
    adjustSize();
    winId();
    windowHandle()->setTransientParent(active->windowHandle());
    QRect place(QPoint(0, 0), size());
    place.moveCenter(active->geometry().center());
    move(place.topLeft());
}

void DownloadWindow::AddOutput(const QString& text) {
    m_text.Add(text);
    if (!m_pause.isActive()) ShowOutput();
}

// Much output is shown in a few steps.
void DownloadWindow::ShowOutput() {
    const bool follows = FollowsTheEnd(*m_txtOutput);
    const QStringList ended = m_text.TakeEnded();
    const bool isNew = !ended.isEmpty() || m_txtOutput->document()->lastBlock().text() != m_text.Open();
    if (!isNew) return;
    ReplaceOpenLine(*m_txtOutput, (ended + QStringList{m_text.Open()}).join(u'\n'));
    if (follows) {
        m_txtOutput->setTextCursor(EndOf(*m_txtOutput));
        m_txtOutput->ensureCursorVisible();
        m_txtOutput->verticalScrollBar()->setValue(m_txtOutput->verticalScrollBar()->maximum());
    }
    m_pause.start();
}

void DownloadWindow::End() {
    m_pause.stop();
    m_cancel = nullptr;
    hide();
}

void DownloadWindow::reject() {
    if (!m_cancel) return;
    m_cmdCancel->setEnabled(false);
    m_lblState->setText(m_application.Translate(QStringLiteral("Stopping...")));
    std::exchange(m_cancel, nullptr)();
}

}  // namespace sheetwright

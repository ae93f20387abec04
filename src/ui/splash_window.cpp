#include "ui/splash_window.h"

#include "core/application.h"
#include "ui/version_text.h"

#include <QGuiApplication>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace sheetwright {

namespace {

constexpr QSize kSize(480, 270);
constexpr int kTextLeft = 196;  // beside the drawn sheet
constexpr int kMargin = 28;
// Heights of fonts: the drawing does not grow with those of the desktop.
constexpr int kNameHeight = 25;
constexpr int kLineHeight = 20;
constexpr int kVersionHeight = 13;
// Of the drawing, which is the same on light and dark desktops.
constexpr QColor kPaper(0xf4, 0xf7, 0xfa);
constexpr QColor kInk(0x2c, 0x37, 0x43);

QPixmap Drawing(double devicePixelRatio) {
    QImageReader reader(QStringLiteral(":/sheetwright/splash.svg"), QByteArrayLiteral("svg"));
    reader.setScaledSize(kSize * devicePixelRatio);
    QPixmap drawing = QPixmap::fromImage(reader.read());
    drawing.setDevicePixelRatio(devicePixelRatio);
    return drawing;
}

}  // namespace

SplashWindow::SplashWindow(const Application& application)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      m_drawing(Drawing(devicePixelRatioF())),
      m_lblProductLine(Line("lblProductLine", QStringLiteral("Sheetwright"), kLineHeight)) {
    setObjectName(QStringLiteral("SplashWindow"));
    setWindowTitle(application.Title);
    setAttribute(Qt::WA_QuitOnClose, false);  // the program has only begun
    setFixedSize(kSize);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kTextLeft, kMargin, kMargin, kMargin);
    column->addStretch(2);
    column->addWidget(Line("lblProduct", QStringLiteral("Tolvane Quillon"), kNameHeight));
    column->addWidget(m_lblProductLine);
    column->addStretch(3);
    column->addWidget(Line("lblVersion", VersionText(application), kVersionHeight));
    if (const QScreen* const screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void SplashWindow::SetProductLine(const QString& text) {
    m_lblProductLine->setText(text);
}

void SplashWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), kPaper);
    painter.drawPixmap(0, 0, m_drawing);
    m_wasPainted = true;
}

QLabel* SplashWindow::Line(const char* name, const QString& text, int height) {
    auto* const label = new QLabel(text, this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    QPalette ink = label->palette();
    ink.setColor(QPalette::WindowText, kInk);
    label->setPalette(ink);
    QFont font = label->font();
    font.setPixelSize(height);
    font.setBold(height > kVersionHeight);
    label->setFont(font);
    return label;
}

}  // namespace sheetwright

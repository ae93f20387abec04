#include "ui/frame_placement.h"

#include "core/application.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr double kTwipsPerPixel = 15;
constexpr double kPartOfScreen = 0.9;
constexpr int kSmallestSide = 300;

QString Section() {
    return QStringLiteral("mdiSheetwright");
}

// In pixels; `fallback` for what was never stored or is no number.
int Stored(const Application& application, const QString& key, int fallback) {
    bool isNumber = false;
    const double twips = application.settings.Read(application.Title, Section(), key).toDouble(&isNumber);
    constexpr double kFarthest = 1e6;
    return isNumber && std::abs(twips) < kFarthest ? qRound(twips / kTwipsPerPixel) : fallback;
}

void Store(Application& application, const QString& key, int pixels) {
    application.settings.Write(application.Title, Section(), key, QString::number(pixels * kTwipsPerPixel));
}

}  // namespace

void RestorePlacement(QWidget& frame, const Application& application) {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QRect room = screen == nullptr ? QRect(0, 0, 1024, 768) : screen->availableGeometry();
    const auto side = [&](const QString& key, int most) {
        const int wanted = Stored(application, key, qRound(most * kPartOfScreen));
        return std::clamp(wanted, std::min(kSmallestSide, most), most);
    };
    const QSize size(side(QStringLiteral("MainWidth"), room.width()),
                     side(QStringLiteral("MainHeight"), room.height()));
    const int left = Stored(application, QStringLiteral("MainLeft"), room.left());
    const int top = Stored(application, QStringLiteral("MainTop"), room.top());
    frame.resize(size);
    frame.move(std::clamp(left, room.left(), room.left() + room.width() - size.width()),
               std::clamp(top, room.top(), room.top() + room.height() - size.height()));
}

void StorePlacement(const QWidget& frame, Application& application) {
    if (frame.isMinimized()) return;
    const bool isPlain = !frame.isMaximized() && !frame.isFullScreen();
    const QPoint corner = isPlain ? frame.pos() : frame.normalGeometry().topLeft();
    const QSize size = isPlain ? frame.size() : frame.normalGeometry().size();
    Store(application, QStringLiteral("MainLeft"), corner.x());
    Store(application, QStringLiteral("MainTop"), corner.y());
    Store(application, QStringLiteral("MainWidth"), size.width());
    Store(application, QStringLiteral("MainHeight"), size.height());
}

bool StoredBlankTick(const Application& application) {
    return application.Str2Boolean(
        application.settings.Read(application.Title, Section(), QStringLiteral("BlankSelected")));
}

void StoreBlankTick(Application& application, bool isTicked) {
    application.settings.Write(application.Title, Section(), QStringLiteral("BlankSelected"),
                               isTicked ? QStringLiteral("True") : QStringLiteral("False"));
}

}  // namespace sheetwright

#include "ui/frame_placement.h"

#include "core/application.h"
#include "core/window_place.h"
#include "print/units.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace sheetwright {

namespace {

QString Section() {
    return QStringLiteral("mdiSheetwright");
}

QString MaximisedKey() {
    return QStringLiteral("MainMaximised");
}

WindowPlace InTwips(const QRect& place) {
    return {place.x() * kTwipsPerScreenPixel, place.y() * kTwipsPerScreenPixel,
            place.width() * kTwipsPerScreenPixel, place.height() * kTwipsPerScreenPixel};
}

int Pixels(double twips) {
    return qRound(twips / kTwipsPerScreenPixel);
}

// The main one first.
std::vector<WindowPlace> Screens() {
    const QScreen* const main = QGuiApplication::primaryScreen();
    std::vector<WindowPlace> screens;
    if (main != nullptr) screens.push_back(InTwips(main->availableGeometry()));
    for (const QScreen* const screen : QGuiApplication::screens())
        if (screen != main) screens.push_back(InTwips(screen->availableGeometry()));
    return screens;
}

QString BooleanText(bool is) {
    return is ? QStringLiteral("True") : QStringLiteral("False");
}

bool StoredBoolean(const Application& application, const QString& key) {
    return application.Str2Boolean(application.settings.Read(application.Title, Section(), key));
}

}  // namespace

void RestorePlacement(QWidget& frame, const Application& application) {
    const WindowPlace place = StoredWindowPlace(application, Screens());
    frame.resize(Pixels(place.width), Pixels(place.height));
    frame.move(Pixels(place.left), Pixels(place.top));
    if (StoredBoolean(application, MaximisedKey())) frame.setWindowState(Qt::WindowMaximized);
}

void StorePlacement(const QWidget& frame, Application& application) {
    const bool isPlain = !frame.isMaximized() && !frame.isFullScreen();
    const QPoint corner = isPlain ? frame.pos() : frame.normalGeometry().topLeft();
    const QSize size = isPlain ? frame.size() : frame.normalGeometry().size();
    StoreWindowPlace(application, InTwips(QRect(corner, size)), frame.isMinimized());
    if (!frame.isMinimized())
        application.settings.Write(application.Title, Section(), MaximisedKey(),
                                   BooleanText(frame.isMaximized()));
}

bool StoredTick(const Application& application, const FrameOption& option) {
    return StoredBoolean(application, option.key);
}

void StoreTick(Application& application, const FrameOption& option, bool isTicked) {
    application.settings.Write(application.Title, Section(), option.key, BooleanText(isTicked));
}

}  // namespace sheetwright

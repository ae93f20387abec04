#include "ui/line_icons.h"

#include "support/short_text.h"

#include <QColor>
#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

bool Holds(const QIcon& icon, const QColor& colour) {
    const QImage image = icon.pixmap(QSize(64, 64)).toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour) return true;
    return false;
}

TEST(LineIcon, IsDrawnInTheColourOfTheTextBesideIt) {
    for (const char* name :
         {"open", "save", "formulas", "add_page", "first_page", "previous_page", "next_page", "last_page"}) {
        EXPECT_TRUE(Holds(LineIcon(S(name), Qt::white), Qt::white)) << name;
        EXPECT_FALSE(Holds(LineIcon(S(name), Qt::white), Qt::black)) << name;
    }
}

TEST(LineIcon, IsEmptyForANameThatHasNoDrawing) {
    EXPECT_TRUE(LineIcon(S("nothing"), Qt::black).isNull());
}

TEST(ProgramIcon, TellsTheViewerApart) {
    const auto imageOf = [](bool isViewer) { return ProgramIcon(isViewer).pixmap(QSize(64, 64)).toImage(); };
    ASSERT_FALSE(imageOf(false).isNull());
    ASSERT_FALSE(imageOf(true).isNull());
    EXPECT_NE(imageOf(false), imageOf(true));
}

}  // namespace

}  // namespace sheetwright

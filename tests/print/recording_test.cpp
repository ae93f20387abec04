#include "print/recording.h"

#include "support/test_application.h"

#include <array>

namespace sheetwright {
namespace {

constexpr qsizetype kGigabyte = qsizetype{1} << 30;

class RecordingTest : public ::testing::Test {
  protected:
    // An image of a gigabyte whose pixels nobody may look at.
    Picture LargePicture() {
        Picture picture;
        picture.image = QImage(m_pixels.data(), 1, 4, kGigabyte / 4, QImage::Format_RGB32);
        return picture;
    }
    std::optional<int> FailureOfAdding(const Picture& picture) {
        return FailureOf([&] { m_recording.Add(DrawnPicture{picture, {}, {}}); });
    }

    Recording m_recording;

  private:
    std::array<uchar, 4> m_pixels{};
};

TEST_F(RecordingTest, HoldsPicturesUpToItsLimit) {
    EXPECT_EQ(FailureOfAdding(LargePicture()), std::nullopt);
    EXPECT_EQ(FailureOfAdding(LargePicture()), std::nullopt);
    EXPECT_EQ(FailureOfAdding(LargePicture()), 7);
    EXPECT_EQ(m_recording.Items().size(), 2U);
    m_recording.Add(DrawnLine{0, 0, 1, 1, {}});
    EXPECT_EQ(m_recording.Items().size(), 3U);
}

TEST_F(RecordingTest, APictureDrawnAgainTakesNoMoreRoom) {
    const Picture picture = LargePicture();
    for (int time = 0; time < 100; ++time)
        EXPECT_EQ(FailureOfAdding(picture), std::nullopt);
}

TEST_F(RecordingTest, PicturesWithinADrawingCountToo) {
    const Picture first = LargePicture();
    EXPECT_EQ(FailureOfAdding(first), std::nullopt);
    auto drawing = std::make_shared<Recording>();
    drawing->Add(DrawnPicture{first, {}, {}});
    drawing->Add(DrawnPicture{LargePicture(), {}, {}});
    Picture drawn;
    drawn.recording = drawing;
    EXPECT_EQ(FailureOfAdding(drawn), std::nullopt);
    EXPECT_EQ(FailureOfAdding(LargePicture()), 7);
}

TEST_F(RecordingTest, AClearedOneHasAllItsRoomAgain) {
    for (int page = 0; page < 3; ++page) {
        EXPECT_EQ(FailureOfAdding(LargePicture()), std::nullopt);
        EXPECT_EQ(FailureOfAdding(LargePicture()), std::nullopt);
        m_recording.Clear();
        EXPECT_TRUE(m_recording.IsEmpty());
    }
}

}  // namespace
}  // namespace sheetwright

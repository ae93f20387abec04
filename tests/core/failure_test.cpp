#include "core/failure.h"

#include "support/test_application.h"

#include <cmath>
#include <limits>

namespace sheetwright {
namespace {

TEST(FailureText, NamesTheNumbersThatPeopleKnow) {
    EXPECT_EQ(FailureText(6), QStringLiteral("Overflow"));
    EXPECT_EQ(FailureText(7), QStringLiteral("Out of memory"));
    EXPECT_EQ(FailureText(13), QStringLiteral("Type mismatch"));
    EXPECT_EQ(FailureText(28), QStringLiteral("Out of stack space"));
    EXPECT_EQ(FailureText(53), QStringLiteral("File not found"));
    EXPECT_EQ(FailureText(62), QStringLiteral("Input past end of file"));
    EXPECT_EQ(FailureText(76), QStringLiteral("Path not found"));
    EXPECT_EQ(FailureText(457),
              QStringLiteral("This key is already associated with an element of this collection"));
}

TEST(FailureText, UnknownNumbersShareOneText) {
    EXPECT_EQ(FailureText(0), QStringLiteral("Application-defined error"));
    EXPECT_EQ(FailureText(99'999), QStringLiteral("Application-defined error"));
}

TEST(Failure, CarriesNumberAndText) {
    const Failure failure(failure::kTypeMismatch);
    EXPECT_EQ(failure.Number(), 13);
    EXPECT_EQ(failure.Text(), QStringLiteral("Type mismatch"));
    EXPECT_STREQ(failure.what(), "13: Type mismatch");
}

TEST(Failure, MayHaveATextOfItsOwn) {
    const Failure failure(1000, QStringLiteral("Größe"));
    EXPECT_EQ(failure.Text(), QStringLiteral("Größe"));
    EXPECT_STREQ(failure.what(), "1000: Größe");
}

TEST(Ignoring, ReturnsWhatFailed) {
    const auto caught = Ignoring([] { throw Failure(failure::kOverflow); });
    ASSERT_TRUE(caught);
    EXPECT_EQ(caught->Number(), 6);
    EXPECT_FALSE(Ignoring([] {}));
}

TEST(Ignoring, LetsOtherExceptionsTravel) {
    EXPECT_THROW(Ignoring([] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST(ToInt16, RoundsHalvesToEven) {
    EXPECT_EQ(ToInt16(0.5), 0);
    EXPECT_EQ(ToInt16(1.5), 2);
    EXPECT_EQ(ToInt16(2.5), 2);
    EXPECT_EQ(ToInt16(-0.5), 0);
    EXPECT_EQ(ToInt16(-1.5), -2);
    EXPECT_EQ(ToInt16(-2.5), -2);
    EXPECT_EQ(ToInt16(2.4999), 2);
}

TEST(ToInt16, RaisesOverflowOutsideSixteenBits) {
    EXPECT_EQ(ToInt16(32'767.49), 32'767);
    EXPECT_EQ(ToInt16(-32'768.5), -32'768);
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt16(32'767.5)); }), 6);
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt16(-32'768.51)); }), 6);
}

TEST(ToInt32, RaisesOverflowOutsideThirtyTwoBits) {
    EXPECT_EQ(ToInt32(2'147'483'647.0), 2'147'483'647);
    EXPECT_EQ(ToInt32(-2'147'483'648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt32(2'147'483'647.5)); }), 6);
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt32(1e300)); }), 6);
}

TEST(ToInt32, NumbersThatAreNotFiniteOverflow) {
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt32(std::nan(""))); }), 6);
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt32(std::numeric_limits<double>::infinity())); }), 6);
    EXPECT_EQ(FailureOf([] { static_cast<void>(ToInt16(-std::numeric_limits<double>::infinity())); }), 6);
}

TEST(ToSingle, RaisesOverflowBeyondSinglePrecision) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    EXPECT_EQ(ToSingle(kLargest), std::numeric_limits<float>::max());
    EXPECT_EQ(ToSingle(-0.5), -0.5F);
    for (const double number :
         {kLargest * 1.001, -1e39, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(FailureOf([&] { static_cast<void>(ToSingle(number)); }), 6) << number;
}

TEST(Quotient, RaisesDivisionByZero) {
    EXPECT_EQ(Quotient(1, -4), -0.25);
    EXPECT_EQ(Quotient(0, 3), 0);
    for (const double divisor : {0.0, -0.0})
        EXPECT_EQ(FailureOf([&] { static_cast<void>(Quotient(0, divisor)); }), 11);
}

}  // namespace
}  // namespace sheetwright

#include "import/csv_sort.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>

namespace sheetwright {
namespace {

std::vector<std::uint32_t> OrderOf(bool byNumber, const QStringList& values) {
    CsvSortKeys keys(byNumber, static_cast<std::int32_t>(values.size()));
    for (const QString& value : values)
        keys.Add(value);
    return keys.Order();
}

using Places = std::vector<std::uint32_t>;

TEST(CsvSortKeys, TextsGoByCharacterCode) {
    EXPECT_EQ(OrderOf(false, {QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("B"), QString(),
                              QStringLiteral("10"), QStringLiteral("9"), QStringLiteral("\u00E4")}),
              Places({3, 4, 5, 2, 1, 0, 6}));
}

TEST(CsvSortKeys, LongTextsAreComparedToTheirEnd) {
    EXPECT_EQ(OrderOf(false, {QStringLiteral("Number 10b"), QStringLiteral("Number 10a"),
                              QStringLiteral("Number 1"), QStringLiteral("Numb"), QStringLiteral("Numbe")}),
              Places({3, 4, 2, 1, 0}));
}

TEST(CsvSortKeys, WhatAllTextsBeginWithMakesNoDifference) {
    EXPECT_EQ(OrderOf(false, {QStringLiteral("Customer 2"), QStringLiteral("Customer 10"),
                              QStringLiteral("Customer "), QStringLiteral("Customer 10000")}),
              Places({2, 1, 3, 0}));
    EXPECT_EQ(OrderOf(false, {QStringLiteral("same"), QStringLiteral("same"), QStringLiteral("same")}),
              Places({0, 1, 2}));
    EXPECT_EQ(OrderOf(false, {}), Places());
}

TEST(CsvSortKeys, AShorterTextStandsBeforeOneThatGoesOnWithAZeroCharacter) {
    EXPECT_EQ(OrderOf(false, {QString(QStringLiteral("a")) + QChar(0), QStringLiteral("a")}), Places({1, 0}));
}

TEST(CsvSortKeys, OrdersLikeWholeTextsCompared) {
    std::mt19937 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts every time
    QStringList values;
    for (int count = 0; count < 2000; ++count) {
        QString value;
        for (auto length = random() % 9; length > 0; --length)
            value += QStringLiteral("\0ab\uFFFF")[random() % 4];
        values << value;
    }
    Places expected(static_cast<std::size_t>(values.size()));
    std::iota(expected.begin(), expected.end(), 0U);
    std::stable_sort(expected.begin(), expected.end(),
                     [&](std::uint32_t left, std::uint32_t right) { return values[left] < values[right]; });
    EXPECT_EQ(OrderOf(false, values), expected);
}

TEST(CsvSortKeys, EqualKeysKeepTheirOrder) {
    EXPECT_EQ(OrderOf(false, {QStringLiteral("same key"), QStringLiteral("a"), QStringLiteral("same key"),
                              QStringLiteral("same key")}),
              Places({1, 0, 2, 3}));
    EXPECT_EQ(OrderOf(true, {QStringLiteral("1.0"), QStringLiteral("01"), QStringLiteral("0"),
                             QStringLiteral("-0")}),
              Places({2, 3, 0, 1}));
}

TEST(CsvSortKeys, NumbersGoByValueAndBlanksFirst) {
    EXPECT_EQ(
        OrderOf(true, {QStringLiteral("10"), QStringLiteral("9"), QStringLiteral(" "), QStringLiteral("-1"),
                       QStringLiteral("0"), QString(), QStringLiteral("-1e999"), QStringLiteral("1e999")}),
        Places({2, 5, 6, 3, 4, 1, 0, 7}));
}

TEST(LeadingNumber, ReadsTheNumberAtTheFront) {
    EXPECT_EQ(LeadingNumber(u"12.5 kg"), 12.5);
    EXPECT_EQ(LeadingNumber(u"  -3"), -3);
    EXPECT_EQ(LeadingNumber(u"+7"), 7);
    EXPECT_EQ(LeadingNumber(u"1e3"), 1000);
    EXPECT_EQ(LeadingNumber(u"20240229"), 20240229);
    EXPECT_EQ(LeadingNumber(u".5"), 0.5);
    EXPECT_EQ(LeadingNumber(u"2e"), 2);
}

TEST(LeadingNumber, AnythingElseIsZero) {
    for (const char16_t* value :
         {u"", u"x", u"-", u"+", u".", u"e5", u"inf", u"NaN", u"--1", u"+-1", u"\u0663"})
        EXPECT_EQ(LeadingNumber(value), 0) << QString::fromUtf16(value).toStdString();
}

TEST(LeadingNumber, NumbersBeyondTheRangeKeepTheirPlace) {
    EXPECT_EQ(LeadingNumber(u"1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(LeadingNumber(u"-1e400 m"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(LeadingNumber(u"001e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(LeadingNumber(u"1e-400"), 0);
    EXPECT_EQ(LeadingNumber(u"-1e-400 m"), 0);
    EXPECT_EQ(LeadingNumber(u"-.5e999.7"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(LeadingNumber(u"+1.e999-"), std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace sheetwright

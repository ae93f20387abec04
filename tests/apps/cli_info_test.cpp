#include "apps/cli_test.h"
#include "support/form_text.h"
#include "support/short_text.h"

namespace sheetwright {

namespace {

FormText TwoDesigns() {
    FormText form;
    form.Page(S("Cover – Übersicht")).Field(S("A")).CheckBox(S("C")).Page(S("Results")).Field(S("B"));
    form.Data(1, {S("A=first\x7Fsecond\tand\\third"), S("C=3")}).Data(2, {S("B=")}).Data(2, {S("B=x=y")});
    return form;
}

}  // namespace

using CliInfo = CliTest;
using CliValues = CliTest;

TEST_F(CliInfo, APlainTextFormIsItsOwnMember) {
    Write(S("a.aft"), TwoDesigns().Bytes());
    const CliResult result = Run({S("info"), S("a.aft")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "version: 1.0.0\ndesign pages: 2\ndesign page 1: Cover – Übersicht\ndesign page 2: Results\n"
              "data pages: 3\nmembers: 1\nmember: a.aft\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CliInfo, MembersOfAnArchiveAreListed) {
    Write(S("a.aft"), TwoDesigns().Bytes());
    ASSERT_EQ(Run({S("fill"), S("a.aft"), S("--save"), S("b.aff")}).status, 0);
    EXPECT_THAT(Run({S("info"), S("b.aff")}).out,
                ::testing::EndsWith("data pages: 3\nmembers: 1\nmember: b.aff\n"));
}

TEST_F(CliInfo, OutputIsUtf8WhateverTheLocale) {
    Write(S("a.aft"), TwoDesigns().Bytes());
    const CliResult result = Run({S("info"), S("a.aft")}, S("C"));
    EXPECT_THAT(result.out, ::testing::HasSubstr("design page 1: Cover – Übersicht\n"));
    EXPECT_EQ(result.err, "");
}

TEST_F(CliValues, ArePrintedPageByPageWithEscapes) {
    Write(S("a.aff"), TwoDesigns().Bytes());
    const CliResult result = Run({S("values"), S("a.aff")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "page\tdesign\tname\tvalue\n"
              "1\tCover – Übersicht\tA\tfirst\\nsecond\\tand\\\\third\n"
              "1\tCover – Übersicht\tC\t3\n"
              "2\tResults\tB\t\n"
              "3\tResults\tB\tx=y\n");
}

TEST_F(CliValues, OfOnePageCanBeAskedFor) {
    Write(S("a.aff"), TwoDesigns().Bytes());
    EXPECT_EQ(Run({S("values"), S("--page"), S("3"), S("a.aff")}).out,
              "page\tdesign\tname\tvalue\n3\tResults\tB\tx=y\n");
}

TEST_F(CliValues, OfAPageThatIsNotThereAreAnError) {
    Write(S("a.aff"), TwoDesigns().Bytes());
    for (const char* page : {"0", "4"}) {
        const CliResult result = Run({S("values"), S("a.aff"), S("--page"), S(page)});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, std::string("error: there is no page ") + page + ": the form has 3\n");
    }
}

TEST_F(CliValues, OfATemplateAreEmpty) {
    Write(S("a.aft"), FormText().Page(S("Cover")).Field(S("A")).CheckBox(S("C")).Bytes());
    EXPECT_EQ(Run({S("values"), S("a.aft")}).out,
              "page\tdesign\tname\tvalue\n1\tCover\tA\t\n1\tCover\tC\t\n");
}

}  // namespace sheetwright

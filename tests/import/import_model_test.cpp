// Small imports, worked by hand.

#include "import/import_model.h"

#include "import/import_case.h"
#include "support/short_text.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

constexpr int kMostPages = 20;

ModelRecord Taker(const char* name, const char* column, int line = 0) {
    ModelRecord record;
    record.name = S(name);
    record.dataSource = S(column) + S(",meter");
    record.line = line;
    return record;
}
ModelRecord NewPageOnReoccur(ModelRecord record) {
    record.newPageOnReoccur = true;
    return record;
}
ModelRecord NewPageOnChange(ModelRecord record) {
    record.newPageOnChange = true;
    return record;
}
ModelRecord NewLineOnReoccur(ModelRecord record) {
    record.newLineOnReoccur = true;
    return record;
}
ModelRecord NewLineOnChange(ModelRecord record) {
    record.newLineOnChange = true;
    return record;
}
ModelRecord OfLevel(int level, ModelRecord record) {
    record.keyLevel = level;
    return record;
}

ModelForm OnePage(const std::vector<ModelRecord>& fields, const std::vector<ModelRecord>& checks = {}) {
    ModelForm form;
    form.designs.push_back({S("A"), fields, checks});
    form.pages.push_back({1, {}});
    return form;
}

// Values separated by ",", rows by "/".
ModelTable Table(const char* names, const char* rows, const QStringList& types = {}) {
    ModelTable table{S(names).split(u','), types, {}};
    for (const QString& row : S(rows).split(u'/'))
        table.rows.push_back(row.split(u','));
    return table;
}

QStringList PagesOf(const ModelOutcome& outcome) {
    QStringList pages;
    for (const ModelPage& page : outcome.pages) {
        QStringList values;
        for (const auto& [name, value] : page.values)
            values << value;
        pages << values.join(u'|');
    }
    return pages;
}
QStringList Poured(const ModelForm& form, const ModelTable& table) {
    return PagesOf(ImportModel(form, 1, kMostPages).Import(table, S("meter")));
}

TEST(ImportModel, ValueThatReoccursBeginsAPageButNotOnAFreshOne) {
    EXPECT_EQ(Poured(OnePage({NewPageOnReoccur(Taker("x", "A"))}), Table("A", "a/b/a")),
              (QStringList{S("a"), S("b"), S("a")}));
}

TEST(ImportModel, FirstRecordNeverChangesAndABlankDoes) {
    const ModelForm form = OnePage({NewPageOnChange(Taker("x", "A")), NewPageOnChange(Taker("y", "B"))});
    EXPECT_EQ(Poured(form, Table("A,B", "a,1/a,1/b,2")), (QStringList{S("a|1"), S("b|2")}));
    EXPECT_EQ(Poured(form, Table("A,B", "a,1/,1/a,1")), (QStringList{S("a|1"), S("a|1")}));
}

TEST(ImportModel, AbandonedRecordIsUndoneFromTheFirstEntryToTheLast) {
    ModelRecord twice = Taker("x", "A");
    twice.dataSource += S(";B,meter");
    EXPECT_EQ(Poured(OnePage({twice, NewPageOnReoccur(Taker("t", "C"))}), Table("A,B,C", "1,2,p/3,4,q")),
              (QStringList{S("3|p"), S("4|q")}))
        << "of two values of the abandoned record the first stays";
}

TEST(ImportModel, CheckBoxKeepsTheStateOfTheAbandonedRecord) {
    ModelRecord check = Taker("c", "A");
    check.isCheck = true;
    EXPECT_EQ(Poured(OnePage({NewPageOnReoccur(Taker("t", "C"))}, {check}), Table("A,C", "1,p/-2,q/3,r")),
              (QStringList{S("p|2"), S("q|3"), S("r|3")}));
}

TEST(ImportModel, LinesFillAndThenAPageBegins) {
    const ModelForm form =
        OnePage({NewLineOnReoccur(Taker("k0", "K", 0)), NewLineOnReoccur(Taker("k1", "K", 1)),
                 Taker("v0", "V", 0), Taker("v1", "V", 1)});
    EXPECT_EQ(Poured(form, Table("K,V", "a,1/b,2/c,3")), (QStringList{S("a|b|1|2"), S("c||3|")}));
}

TEST(ImportModel, LineTriggerThatComesBeforeTheHigherLinesBeginsAPage) {
    ModelForm form =
        OnePage({NewLineOnReoccur(Taker("k0", "K", 0)), Taker("v0", "V", 0), Taker("v1", "V", 1)});
    form.pages[0].values = {{S("k0"), S("old")}};
    EXPECT_EQ(Poured(form, Table("K,V", "a,1")), (QStringList{S("old||"), S("a|1|")}));
    EXPECT_EQ(Poured(form, Table("V,K", "1,a")), QStringList{S("old||1")}) << "the same, the other way round";
}

TEST(ImportModel, ColumnsBeforeTheLineTriggerAreNotSeenToChangeAgain) {
    const ModelForm form = OnePage({Taker("a0", "A", 0), NewLineOnReoccur(Taker("b0", "B", 0)),
                                    NewLineOnChange(Taker("a1", "A", 1)), Taker("b1", "B", 1)});
    EXPECT_EQ(Poured(form, Table("A,B", "x,1/y,2")), QStringList{S("x|1|y|2")});
}

TEST(ImportModel, KeyColumnsLeadAndOrderTheRecords) {
    const ModelForm form = OnePage(
        {Taker("v", "V"), OfLevel(2, NewPageOnReoccur(Taker("k", "K"))), OfLevel(1, Taker("n", "N"))});
    EXPECT_EQ(Poured(form, Table("V,K,N", "a,2,10/b,1,10/c,1,9/d,1,10", {{}, {}, S("NUMBER")})),
              (QStringList{S("c|1|9"), S("b|1|10"), S("d|1|10"), S("a|2|10")}));
}

TEST(ImportModel, MissingKeyLevelIsNoted) {
    const ModelForm form = OnePage({OfLevel(3, Taker("v", "V"))});
    EXPECT_EQ(ImportModel(form, 1, kMostPages).Import(Table("V", "b/a"), S("meter")).runsWithoutKeyLevel, 1);
}

TEST(ImportModel, PagesOfAPairComeOutInTurn) {
    ModelForm form = OnePage({NewPageOnReoccur(Taker("x", "A"))});
    form.designs.push_back({S("B"), {NewPageOnReoccur(Taker("y", "A")), Taker("z", "A")}, {}});
    form.hasLinks = true;
    form.links = {{S("b"), S("A")}, {S("A"), S("B")}};
    const ModelOutcome outcome = ImportModel(form, 1, kMostPages).Import(Table("A", "1/2/3"), S("meter"));
    EXPECT_EQ(PagesOf(outcome), (QStringList{S("1"), S("1|1"), S("2"), S("2|2"), S("3"), S("3|3")}));
    EXPECT_EQ(outcome.pageOnScreen, 6);
    EXPECT_EQ(outcome.pagesAdded, 5);
    form.links.pop_back();
    EXPECT_EQ(ImportModel(form, 1, kMostPages).Import(Table("A", "1"), S("meter")).runs, 0);
}

TEST(ImportModel, TypesAreShownAsTheFormShowsThem) {
    const ModelForm form = OnePage({Taker("b", "B"), Taker("d", "D")});
    EXPECT_EQ(Poured(form, Table("B,D", "-1,20010203", {S("BOOLEAN"), S("DATE")})),
              QStringList{S("True|03/02/2001")});
    EXPECT_EQ(Poured(form, Table("B,D", "1,0", {S("BOOLEAN"), S("DATE")})), QStringList{S("False|")});
}

TEST(ImportModel, WhatAListFilledInIsNotUndone) {
    ModelRecord code = Taker("code", "A");
    code.list = S("@LISTS\\town,Code");
    ModelRecord town;
    town.name = S("town");
    town.dataSource = S("LISTS\\TOWN,Name");
    ModelForm form = OnePage({code, town, NewPageOnReoccur(Taker("t", "B"))});
    form.lists[S("LISTS\\TOWN")] = TownList();
    EXPECT_EQ(Poured(form, Table("A,B", "K1,p/K2,q/none,r")),
              (QStringList{S("K1|Kirby|p"), S("K2|Kirby|q"), S("none||r")}));
}

TEST(ImportModel, FormulasRunAtTheEnd) {
    ModelRecord copy;
    copy.name = S("copy");
    copy.copied = S("x");
    ModelRecord constant = Taker("set", "A");
    constant.constant = S("!");
    EXPECT_EQ(Poured(OnePage({copy, constant, NewPageOnReoccur(Taker("x", "A"))}), Table("A", "a/b")),
              (QStringList{S("a|!|a"), S("b|!|b")}));
}

TEST(ImportModel, EndlessPagesAreGivenUp) {
    ModelRecord twice = NewPageOnReoccur(Taker("x", "A"));
    twice.dataSource += S(";B,meter");
    EXPECT_TRUE(
        ImportModel(OnePage({twice}), 1, kMostPages).Import(Table("A,B", "1,2"), S("meter")).isEndless);
}

TEST(ModelTakes, AlternativesAndStars) {
    const QString target = S("V(x;y),DRIVERS\\meter");
    EXPECT_TRUE(ModelTakes(S("v(X;Y),drivers/METER"), target));
    EXPECT_TRUE(ModelTakes(S("a;*,DRIVERS\\meter;b"), target));
    EXPECT_FALSE(ModelTakes(S("*;*,DRIVERS\\other"), target));
    EXPECT_TRUE(ModelTakes(S("\"a;b\";V(x;y),DRIVERS\\meter"), target));
    EXPECT_FALSE(ModelTakes(S("(a;V(x;y),DRIVERS\\meter"), target)) << "the parenthesis is never closed";
    EXPECT_TRUE(ModelTakes(S("a;\"b;V(x;y),DRIVERS\\meter"), target)) << "that quote is not seen";
    EXPECT_FALSE(ModelTakes(S("a;;V(x;y),DRIVERS\\meter"), target)) << "nor is that semicolon";
    EXPECT_FALSE(ModelTakes({}, target));
}

TEST(ModelRelativePath, BeginsAtTheDriversFolder) {
    const QStringList marked{S("\\lab\\Drivers\\a b"), S("\\plain")};
    EXPECT_EQ(ModelRelativePath(S("\\lab\\Drivers\\a b\\Data\\t.csv"), marked), S("Drivers\\a b"));
    EXPECT_EQ(ModelRelativePath(S("\\plain\\t.csv"), marked), S("\\plain"));
    EXPECT_EQ(ModelRelativePath(S("\\lab\\t.csv"), marked), S("\\lab\\t.csv"));
}

}  // namespace
}  // namespace sheetwright

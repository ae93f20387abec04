#include "core/folders.h"
#include "fields/maintainable_lists.h"
#include "formula/evaluation_context.h"
#include "formula/evaluator.h"
#include "formula/value_conversion.h"
#include "import/csv_table.h"
#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

class FillingFromAList : public PageOfElements {
  protected:
    FillingFromAList() {
        SetListFolder(*m_application, m_folder.path());
        Write(S("LISTS/towns.csv"), "Town,Code,Since,7\r\nBern,007,19991231,x\r\nUlm,12,20000101,y\r\n");
        Write(S("LISTS/towns.inf"), "[Since]\r\nDataType=DATE\r\n");
        AddField({}, {S("List=@LISTS\\towns,Town")});
    }

    int AddTaker(const QString& dataSource, const QStringList& changes = {}) {
        return AddField(S("old"), QStringList{S("DataSource=") + dataSource} + changes);
    }
    // A person enters the first field and picks an item of its list.
    void Pick(int index) {
        Enter(1);
        m_page.Entry.ReportPick(index);
    }
    [[nodiscard]] QString TitleOf() const { return ListFolder(*m_application) + S("LISTS\\towns.csv"); }
    [[nodiscard]] ShownMessage Missing(const char* alternative) const {
        return {S("Missing Field in csv list: ") + S(alternative), TitleOf(), MessageIcon::Exclamation};
    }
};

TEST_F(FillingFromAList, AnotherFieldTakesItsColumnOfTheChosenRow) {
    const int code = AddTaker(S("LISTS\\towns,Code"));
    Pick(1);
    EXPECT_EQ(TextOf(code), S("12"));
    EXPECT_EQ(m_page.Entry.Value(), S("Ulm"));
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(m_window.Count(S("ElementChanged 2")), 1);
    Pick(0);
    EXPECT_EQ(TextOf(code), S("007")) << "as it stands";
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(FillingFromAList, TheListStandsAtTheChosenRow) {
    Pick(1);
    ASSERT_NE(m_document.EntryList, nullptr);
    EXPECT_EQ(m_document.EntryList->Position(), 2);
    Pick(0);
    EXPECT_EQ(m_document.EntryList->Position(), 1);
}

TEST_F(FillingFromAList, FormulasReadTheChosenRow) {
    Pick(1);
    EvaluationContext context{*m_application,      m_document.memory,    m_application->FormVars,
                              m_document.words,    m_document.MyTempDir, m_document.DataPageNum,
                              m_document.MePage,   m_document.Me,        &m_document.DriverData,
                              m_document.EntryList};
    const auto told = [&](const char* reference) {
        return sheetwright::TextOf(Evaluator(context).Evaluate(S(reference)), m_application->conventions);
    };
    EXPECT_EQ(told("{LISTS\\towns,Code}"), S("12"));
    EXPECT_EQ(told("{lists\\anything,code}"), S("12"));
    EXPECT_EQ(told("{LISTS\\towns,Since}"), S("01/01/2000")) << "a date as people read it";
    EXPECT_EQ(told("{LISTS\\towns,Land}"), QString());
    m_page.Entry.ReportPick(0);
    EXPECT_EQ(told("{LISTS\\towns,Code}"), S("007"));
}

TEST_F(FillingFromAList, CaseDoesNotCountOnTheDisk) {
    Write(S("Mine/Lists/North/TOWNS.CSV"), "Town,Since\r\nKiel,20000101\r\n");
    Write(S("Mine/Lists/North/Towns.Inf"), "[since]\r\nDataType=DATE\r\n");
    SetListFolder(*m_application, m_folder.filePath(S("mine")));
    const int town = AddField({}, {S("List=@LISTS\\north\\towns,TOWN")});
    const int since = AddTaker(S("lists\\NORTH\\towns,SINCE"));
    Enter(town);
    ASSERT_EQ(m_page.Entry.ListCount(), 1);
    m_page.Entry.ReportPick(0);
    EXPECT_EQ(TextOf(since), S("20000101"));
    EXPECT_EQ(m_document.EntryList->Columns().At(S("Since")).DataType(), S("DATE"));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(FillingFromAList, TwoFieldsWithTheSameListAndDifferentColumnsAreBothFilled) {
    const int code = AddTaker(S("LISTS\\towns,Code"), {S("List=@LISTS\\towns,Code")});
    const int since = AddTaker(S("LISTS\\towns,Since"), {S("List=@LISTS\\towns,Since")});
    Pick(1);
    EXPECT_EQ(TextOf(code), S("12"));
    EXPECT_EQ(TextOf(since), S("20000101")) << "unformatted";
}

TEST_F(FillingFromAList, TheTextPassesNoMask) {
    const int code = AddTaker(S("LISTS\\towns,Code"), {S("Format=0.00")});
    Pick(0);
    EXPECT_EQ(TextOf(code), S("007"));
}

TEST_F(FillingFromAList, TheActiveFieldTakesNothing) {
    m_page.FieldProperties[0]->Add(S("LISTS\\towns,Code"), S("DataSource"));
    Pick(1);
    EXPECT_EQ(TextOf(1), QString());
    Unselect(m_document);
    EXPECT_EQ(TextOf(1), S("Ulm"));
}

TEST_F(FillingFromAList, AFieldNobodyCanEnterIsFilledToo) {
    const int code = AddTaker(S("LISTS\\towns,Code"), {S("ReadOnly=True")});
    Pick(1);
    EXPECT_EQ(TextOf(code), S("12"));
}

TEST_F(FillingFromAList, TheListsNameComparesInAnyCaseAndEitherSeparator) {
    const int code = AddTaker(S("lists/TOWNS,code"));
    const int quoted = AddTaker(S("\"LISTS\\towns\",\"Code\""));
    Pick(1);
    EXPECT_EQ(TextOf(code), S("12"));
    EXPECT_EQ(TextOf(quoted), S("12"));
}

TEST_F(FillingFromAList, AColumnMayBeNamedByItsNumber) {
    const int second = AddTaker(S("LISTS\\towns,2"));
    Pick(1);
    EXPECT_EQ(TextOf(second), S("12"));
}

TEST_F(FillingFromAList, OtherDataSourcesAreLeftAlone) {
    const int fields[] = {AddTaker(S("LISTS\\others,Code")), AddTaker(S("towns,Code")),
                          AddTaker(S("Code,LISTS\\towns")), AddTaker(S("*,Code")), AddTaker(S(""))};
    const int without = AddField(S("old"));
    Pick(1);
    for (const int field : fields)
        EXPECT_EQ(TextOf(field), S("old"));
    EXPECT_EQ(TextOf(without), S("old"));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(FillingFromAList, AlternativesAreSeparatedOutsideQuotesAndParentheses) {
    const int first = AddTaker(S("LISTS\\towns,Code;Code,probe"));
    const int last = AddTaker(S("Code,probe;LISTS\\towns,Code"));
    const int trailing = AddTaker(S("LISTS\\towns,Code;"));
    const int bracketed = AddTaker(S("a(;),b;LISTS\\towns,Code"));
    const int quoted = AddTaker(S("a\";LISTS\\towns,Code\""));
    const int both = AddTaker(S("LISTS\\towns,Code;LISTS\\towns,Since"));
    Pick(1);
    EXPECT_EQ(TextOf(first), S("12"));
    EXPECT_EQ(TextOf(last), S("12"));
    EXPECT_EQ(TextOf(trailing), S("12"));
    EXPECT_EQ(TextOf(bracketed), S("12"));
    EXPECT_EQ(TextOf(quoted), S("old"));
    EXPECT_EQ(TextOf(both), S("20000101")) << "the last one that applies";
}

TEST_F(FillingFromAList, OnlyFieldsOfTheSameRecordAreFilled) {
    m_page.FieldProperties[0]->Add(S("2"), S("MultiRecordIndex"));
    const int same = AddTaker(S("LISTS\\towns,Code"), {S("MultiRecordIndex=2")});
    const int other = AddTaker(S("LISTS\\towns,Code"), {S("MultiRecordIndex=1")});
    const int none = AddTaker(S("LISTS\\towns,Code"));
    Pick(1);
    EXPECT_EQ(TextOf(same), S("12"));
    EXPECT_EQ(TextOf(other), S("old"));
    EXPECT_EQ(TextOf(none), S("old"));
}

TEST_F(FillingFromAList, AMissingOrBadRecordIndexIsNone) {
    const int none = AddTaker(S("LISTS\\towns,Code"), {S("MultiRecordIndex=0")});
    const int bad = AddTaker(S("LISTS\\towns,Code"), {S("MultiRecordIndex=99999")});
    Pick(1);
    EXPECT_EQ(TextOf(none), S("12"));
    EXPECT_EQ(TextOf(bad), S("12"));
}

TEST_F(FillingFromAList, AMissingColumnIsToldAndTheWalkGoesOn) {
    const int land = AddTaker(S("LISTS\\towns,Land"));
    const int number = AddTaker(S("Code,probe;LISTS\\towns,9"));
    const int code = AddTaker(S("LISTS\\towns,Code"));
    Pick(1);
    EXPECT_EQ(m_ui.messages, (std::vector{Missing("LISTS\\towns,Land"), Missing("LISTS\\towns,9")}));
    EXPECT_EQ(TextOf(land), S("old"));
    EXPECT_EQ(TextOf(number), S("old"));
    EXPECT_EQ(TextOf(code), S("12"));
    EXPECT_EQ(m_document.Busy, 0);
}

TEST_F(FillingFromAList, AMissingColumnIsToldInTheLanguageOfTheInstallation) {
    Write(S("Sheetwright.DIC"), "English,Translation\r\nMissing Field in csv list: %1,Fehlt: %1\r\n");
    m_application->dictionary.Load(Path(S("Sheetwright.DIC")));
    AddTaker(S("LISTS\\towns"));
    Pick(0);
    EXPECT_EQ(m_ui.messages,
              (std::vector{ShownMessage{S("Fehlt: LISTS\\towns"), TitleOf(), MessageIcon::Exclamation}}));
}

TEST_F(FillingFromAList, AMissingColumnOfAnEarlierAlternativeFails) {
    AddTaker(S("LISTS\\towns,Land"));
    const int failing = AddTaker(S("LISTS\\towns,Land;LISTS\\towns,Code"));
    const int behind = AddTaker(S("LISTS\\towns,Code"));
    Enter(1);
    EXPECT_EQ(FailureOf([&] { m_page.Entry.ReportPick(1); }), failure::kInvalidCall);
    EXPECT_EQ(TextOf(failing), S("old"));
    EXPECT_EQ(TextOf(behind), S("old"));
    EXPECT_EQ(m_ui.messages, std::vector{Missing("LISTS\\towns,Land")}) << "what was missing before it";
    EXPECT_EQ(m_page.Entry.Value(), S("Ulm")) << "the item is chosen";
}

TEST_F(FillingFromAList, BehindTheLastSemicolonStandsAnAlternativeEvenIfItIsEmpty) {
    AddTaker(S("LISTS\\towns,Land;"));
    Enter(1);
    EXPECT_EQ(FailureOf([&] { m_page.Entry.ReportPick(1); }), failure::kInvalidCall);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(FillingFromAList, AnAlternativeThatNamesNoListIsNotMissed) {
    AddTaker(S("1E999,Code"));
    AddTaker(S("9").repeated(400) + S(",Code"));
    const int code = AddTaker(S("LISTS\\towns,Code"));
    Pick(1);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
    EXPECT_EQ(TextOf(code), S("12"));
}

TEST_F(FillingFromAList, TypingFillsNothing) {
    const int code = AddTaker(S("LISTS\\towns,Code"));
    Enter(1);
    m_page.Entry.ReportText(S("Ulm"));
    EXPECT_EQ(TextOf(code), S("old"));
    Unselect(m_document);
    Enter(1);
    EXPECT_EQ(m_page.Entry.ListIndex(), 1);
    EXPECT_EQ(TextOf(code), S("old")) << "nor does entering a field whose text is an item";
}

TEST_F(FillingFromAList, AListOfTheFormItselfFillsNothing) {
    AddField({}, {S("List=Bern,Ulm")});
    const int code = AddTaker(S("LISTS\\towns,Code"));
    Enter(2);
    m_page.Entry.ReportPick(1);
    EXPECT_EQ(TextOf(code), S("old"));
    Unselect(m_document);
    FillFromList(m_document);
    EXPECT_EQ(TextOf(code), S("old")) << "nor does an editor that is closed";
}

TEST_F(FillingFromAList, WhatGoesOnWhileAMessageShowsIsNoMatter) {
    class Leaving : public RecordingUserInterface {
      public:
        MessageAnswer ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                                  MessageButtons buttons) override {
            if (onMessage) onMessage();
            return RecordingUserInterface::ShowMessage(text, title, icon, buttons);
        }
        std::function<void()> onMessage;
    };
    Leaving ui;
    Application application(m_application->Title, m_folder.path(), Settings(m_folder.filePath(S("settings"))),
                            ui);
    frmSheetwright document(application);
    Page& page = *document.page;
    ConnectEntry(document);
    for (const char* key :
         {"List=@LISTS\\towns,Town", "DataSource=LISTS\\towns,Land", "DataSource=LISTS\\towns,9"}) {
        auto record = std::make_shared<PropertyBag>();
        record->Add(S(key).section(u'=', 1), S(key).section(u'=', 0, 0));
        page.FieldProperties.push_back(record);
        page.Entries.Load({});
    }
    ui.onMessage = [&] {
        EXPECT_EQ(document.Busy, 1);
        Unselect(document);
        page.FieldProperties.clear();
    };
    Entries_GotFocus(document, 1);
    page.Entry.ReportPick(1);
    EXPECT_EQ(ui.messages.size(), 2U);
}

class LookingUpLists : public FillingFromAList {
  protected:
    LookingUpLists() : m_code(AddTaker(S("LISTS\\towns,Code"))) {}
    void Fill(const QString& text, const QString& list = S("@LISTS\\towns,Town")) {
        m_page.Entries.At(1).text = text;
        m_lookUps.Fill(1, list);
    }

    ListLookUps m_lookUps{m_document};
    int m_code;
};

TEST_F(LookingUpLists, ATextThatIsAnItemFillsTheOthers) {
    Fill(S("Ulm"));
    EXPECT_EQ(TextOf(m_code), S("12"));
    EXPECT_EQ(TextOf(1), S("Ulm"));
    ASSERT_NE(m_document.EntryList, nullptr);
    EXPECT_EQ(m_document.EntryList->Position(), 2);
    Fill(S("Bern"));
    EXPECT_EQ(TextOf(m_code), S("007"));
}

TEST_F(LookingUpLists, ATextThatIsNoItemDoesNothing) {
    for (const char* text : {"ulm", "Ulm ", "", "Code"}) {
        Fill(S(text));
        EXPECT_EQ(TextOf(m_code), S("old")) << text;
        EXPECT_EQ(m_document.EntryList->Position(), 0);
    }
}

TEST_F(LookingUpLists, TheFirstOfEqualItemsCounts) {
    Write(S("LISTS/towns.csv"), "Town,Code\r\nUlm,1\r\nUlm,2\r\n");
    Fill(S("Ulm"));
    EXPECT_EQ(TextOf(m_code), S("1"));
}

TEST_F(LookingUpLists, TheRecordIndexIsThatOfTheFieldItself) {
    m_page.FieldProperties[0]->Add(S("3"), S("MultiRecordIndex"));
    const int same = AddTaker(S("LISTS\\towns,Code"), {S("MultiRecordIndex=3")});
    Fill(S("Ulm"));
    EXPECT_EQ(TextOf(m_code), S("old"));
    EXPECT_EQ(TextOf(same), S("12"));
}

TEST_F(LookingUpLists, ListsThatAreNotThereDoNothing) {
    Write(S("outside.csv"), "Town,Code\r\nUlm,1\r\n");
    SetListFolder(*m_application, Path(S("mine/")));
    for (const char* list :
         {"", "Ulm", "@", "@LISTS\\gone,Town", "@..\\outside,Town", "@LISTS\\..\\..\\outside,Town"})
        Fill(S("Ulm"), S(list));
    EXPECT_EQ(TextOf(m_code), S("old"));
    EXPECT_EQ(m_document.EntryList, nullptr);
}

TEST_F(LookingUpLists, AColumnThatIsMissingHasNoItems) {
    Fill(S("Ulm"), S("@LISTS\\towns,Land"));
    EXPECT_EQ(TextOf(m_code), S("old"));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

TEST_F(LookingUpLists, AFieldThatIsNotThereIsNoMatter) {
    m_lookUps.Fill(0, S("@LISTS\\towns,Town"));
    m_lookUps.Fill(99, S("@LISTS\\towns,Town"));
    EXPECT_EQ(m_document.EntryList, nullptr);
}

TEST_F(LookingUpLists, AMissingColumnIsToldOnceForManyRecords) {
    AddTaker(S("LISTS\\towns,Land"));
    Fill(S("Ulm"));
    Fill(S("Bern"));
    EXPECT_EQ(m_ui.messages, std::vector{Missing("LISTS\\towns,Land")});
    EXPECT_EQ(TextOf(m_code), S("007"));
}

TEST_F(LookingUpLists, EachListIsReadOnce) {
    Fill(S("Ulm"));
    Write(S("LISTS/towns.csv"), "Town,Code\r\nUlm,99\r\n");
    Fill(S("Ulm"));
    EXPECT_EQ(TextOf(m_code), S("12"));
}

TEST_F(FillingFromAList, TheListOfALookUpEndsWithIt) {
    {
        ListLookUps lookUps(m_document);
        m_page.Entries.At(1).text = S("Ulm");
        lookUps.Fill(1, S("@LISTS\\towns,Town"));
        EXPECT_NE(m_document.EntryList, nullptr);
    }
    EXPECT_EQ(m_document.EntryList, nullptr);
}

}  // namespace
}  // namespace sheetwright

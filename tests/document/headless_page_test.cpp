#include "document/headless_page.h"

#include "document/document.h"
#include "document/page.h"
#include "support/page_text.h"
#include "support/test_application.h"

#include <QStringList>

namespace sheetwright {
namespace {

class HeadlessPage : public ApplicationTest {
  protected:
    HeadlessPage() : m_document(*m_application) {
        for (const char* line :
             {"BEGIN PAGE 1", "Title=A",        "BEGIN CHECK", "Name=tick",   "END CHECK",  "BEGIN FIELD",
              "Name=photo",   "FieldType=6",    "END FIELD",   "BEGIN FIELD", "Name=text",  "FieldType=0",
              "Format=0.00",  "Format=ignored", "END FIELD",   "BEGIN LABEL", "Name=label", "END LABEL",
              "BEGIN FIELD",  "FieldType=2",    "Name=list",   "END FIELD",   "END PAGE"})
            m_document.memory.AppendFormDesign(1, QString::fromLatin1(line));
        for (const char* line :
             {"BEGIN PAGE 2", "BEGIN FIELD", "Name=other", "FieldType=0", "END FIELD", "END PAGE"})
            m_document.memory.AppendFormDesign(2, QString::fromLatin1(line));
        UseHeadlessPage(m_document);
    }

    void AddPage(const QString& design, const QStringList& items) {
        const auto number = static_cast<std::int16_t>(m_document.memory.DataPageCount() + 1);
        m_document.memory.AppendFormData(number,
                                         QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(design));
        for (const QString& item : items)
            m_document.memory.AppendFormData(number, item);
        m_document.memory.AppendFormData(number, u"END PAGE");
    }
    void Show(std::int16_t page) {
        m_document.DataPageNum = page;
        LoadPage(m_document);
    }
    [[nodiscard]] QStringList Lines(int page) const { return TextsOf(m_document.memory.DataPage(page)); }
    // Whether the records are those of no page at all.
    [[nodiscard]] bool HasNoRecords() const {
        return m_document.page->FieldProperties.empty() && m_document.page->CheckProperties.empty() &&
               m_document.page->BitmapProperties.empty();
    }

    frmSheetwright m_document;
};

TEST_F(HeadlessPage, KnowsTheRecordsOfThePagesDesign) {
    AddPage(QStringLiteral("1"), {});
    Show(1);
    EXPECT_EQ(m_document.PageNum, 1);
    EXPECT_EQ(m_document.Pages, 1);
    ASSERT_EQ(m_document.page->FieldProperties.size(), 2U);
    EXPECT_EQ(m_document.page->FieldProperties[0]->At(u"Name"), QStringLiteral("text"));
    EXPECT_EQ(m_document.page->FieldProperties[0]->At(u"Format"), QStringLiteral("0.00")) << "the first of two";
    EXPECT_EQ(m_document.page->FieldProperties[1]->At(u"Name"), QStringLiteral("list"));
    ASSERT_EQ(m_document.page->CheckProperties.size(), 1U);
    EXPECT_EQ(m_document.page->CheckProperties[0]->At(u"Name"), QStringLiteral("tick"));
    ASSERT_EQ(m_document.page->BitmapProperties.size(), 1U);
    EXPECT_EQ(m_document.page->BitmapProperties[0]->At(u"Name"), QStringLiteral("photo"));
}

TEST_F(HeadlessPage, ReadsTheTypeOfAFieldAsANumber) {
    for (const char* line : {"BEGIN PAGE 3", "BEGIN FIELD", "Name=text", "FieldType=02", "END FIELD",
                             "BEGIN FIELD", "Name=photo", "END FIELD", "END PAGE"})
        m_document.memory.AppendFormDesign(3, QString::fromLatin1(line));
    AddPage(QStringLiteral("3"), {});
    Show(1);
    ASSERT_EQ(m_document.page->FieldProperties.size(), 1U);
    EXPECT_EQ(m_document.page->FieldProperties[0]->At(u"Name"), QStringLiteral("text"));
    ASSERT_EQ(m_document.page->BitmapProperties.size(), 1U);
    EXPECT_EQ(m_document.page->BitmapProperties[0]->At(u"Name"), QStringLiteral("photo"));
}

TEST_F(HeadlessPage, TurningToAnotherDesignReplacesTheRecords) {
    AddPage(QStringLiteral("1"), {});
    AddPage(QStringLiteral("2"), {});
    Show(1);
    Show(2);
    EXPECT_EQ(m_document.PageNum, 2);
    ASSERT_EQ(m_document.page->FieldProperties.size(), 1U);
    EXPECT_EQ(m_document.page->FieldProperties[0]->At(u"Name"), QStringLiteral("other"));
    EXPECT_TRUE(m_document.page->CheckProperties.empty());
}

TEST_F(HeadlessPage, APageThatCannotBeBuiltLeavesNone) {
    AddPage(QStringLiteral("1"), {});
    AddPage(QStringLiteral("7"), {});
    AddPage(QStringLiteral("one"), {});
    AddPage(QStringLiteral("-1"), {});
    for (const std::int16_t page : {std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}) {
        Show(1);
        ASSERT_EQ(m_document.PageNum, 1);
        m_document.Pages = 0;
        Show(page);
        EXPECT_EQ(m_document.PageNum, 0) << page;
        EXPECT_EQ(m_document.Pages, 4) << page;
        EXPECT_TRUE(HasNoRecords()) << page;
        const QStringList before = Lines(page);
        SavePage(m_document);
        EXPECT_EQ(Lines(page), before) << page;
    }
}

TEST_F(HeadlessPage, ANumberOutsideTheDocumentShowsNothingNew) {
    LoadPage(m_document);
    EXPECT_EQ(m_document.PageNum, 0);
    AddPage(QStringLiteral("1"), {});
    Show(1);
    Show(2);
    SavePage(m_document);
    EXPECT_EQ(m_document.PageNum, 1);
    Show(0);
    SavePage(m_document);
    EXPECT_EQ(Lines(1), (QStringList{QStringLiteral("BEGIN PAGE 1 DESIGN=1"), QStringLiteral("END PAGE")}));
    EXPECT_TRUE(m_document.memory.DataPage(0).IsEmpty());
}

TEST_F(HeadlessPage, APageWithoutValuesIsSavedWithALineForEachElement) {
    AddPage(QStringLiteral("1"), {});
    Show(1);
    const QStringList saved{QStringLiteral("BEGIN PAGE 1 DESIGN=1"),
                            QStringLiteral("text="),
                            QStringLiteral("list="),
                            QStringLiteral("tick=0"),
                            QStringLiteral("photo=0"),
                            QStringLiteral("END PAGE")};
    SavePage(m_document);
    EXPECT_EQ(Lines(1), saved);
    SavePage(m_document);
    EXPECT_EQ(Lines(1), saved) << "saving twice gives the same lines";
}

TEST_F(HeadlessPage, APageWithValuesKeepsItsLines) {
    AddPage(QStringLiteral("1"), {QStringLiteral("gone=1"), QStringLiteral("text=a=b")});
    const QStringList lines = Lines(1);
    Show(1);
    SavePage(m_document);
    EXPECT_EQ(Lines(1), lines);
}

TEST_F(HeadlessPage, APageOfAnotherDesignThanTheOneOnScreenIsNotOverwritten) {
    AddPage(QStringLiteral("1"), {});
    AddPage(QStringLiteral("2"), {});
    Show(1);
    m_document.DataPageNum = 2;
    SavePage(m_document);
    EXPECT_EQ(Lines(2), (QStringList{QStringLiteral("BEGIN PAGE 2 DESIGN=2"), QStringLiteral("END PAGE")}));
}

}  // namespace
}  // namespace sheetwright

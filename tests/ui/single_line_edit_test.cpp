#include "ui/single_line_edit.h"

#include "support/short_text.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

TEST(InOneLine, LineBreaksBecomeBlanks) {
    EXPECT_EQ(InOneLine(S("a\r\nb\nc\rd\u2028e\u2029f")), S("a b c d e f"));
    EXPECT_EQ(InOneLine(S("a\n\nb")), S("a  b"));
}

TEST(InOneLine, LastOnesGo) {
    EXPECT_EQ(InOneLine(S("a\r\n\r\n")), S("a"));
    EXPECT_EQ(InOneLine(S("\n")), QString());
    EXPECT_EQ(InOneLine(QString()), QString());
}

TEST(InOneLine, OtherBlanksStay) {
    EXPECT_EQ(InOneLine(S(" a\tb\u00A0 ")), S(" a\tb\u00A0 "));
}

TEST(SingleLineEdit, DroppedTextComesInOneLine) {
    SingleLineEdit edit(nullptr);
    edit.resize(200, 20);
    QMimeData data;
    data.setText(S("a\nb"));
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&edit, &enter);
    QDropEvent event(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&edit, &event);
    EXPECT_EQ(edit.text(), S("a b"));
}

TEST(SingleLineEdit, ReplacedTextCanBeUndone) {
    SingleLineEdit edit(nullptr);
    edit.setText(S("one"));
    edit.ReplaceText(S("two"));
    EXPECT_EQ(edit.text(), S("two"));
    edit.undo();
    EXPECT_EQ(edit.text(), S("one"));
    edit.ReplaceText(S("one"));
    EXPECT_FALSE(edit.isUndoAvailable());
}

TEST(SingleLineEdit, SelectingAWideTextKeepsItsStartInView) {
    SingleLineEdit edit(nullptr);
    edit.resize(100, 20);
    edit.setText(QString(500, u'x'));
    edit.SelectFromEnd();
    EXPECT_EQ(edit.selectedText().size(), 500);
    EXPECT_EQ(edit.cursorPosition(), 0);
    edit.setText(S("x"));
    edit.SelectFromEnd();
    EXPECT_EQ(edit.cursorPosition(), 1);
}

}  // namespace
}  // namespace sheetwright

// The model of a list, and each command on it with undo and redo.

#include "ui/list_table_model.h"

#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/list_table_commands.h"

#include <QAbstractItemModelTester>
#include <QUndoStack>

namespace sheetwright {

namespace {

const QByteArray kFile = "A,B\n\"1\",x\n2,y\n3\n4,z,more\n";

class ListTableModelTest : public ApplicationTest {
  protected:
    ListTableModelTest() { Show(kFile); }

    void Show(const QByteArray& bytes, const CsvTypes& types = {}) {
        m_stack.clear();
        auto table = std::make_unique<ListTable>(bytes, types);
        m_model.SetTable(*table);
        m_table = std::move(table);
    }

    // Runs a command, and sees that undoing and doing again give the same files.
    QByteArray Done(std::unique_ptr<QUndoCommand> command) {
        if (!command) return "nothing to do";
        const QByteArray before = m_table->Bytes();
        m_stack.push(command.release());
        const QByteArray after = m_table->Bytes();
        m_stack.undo();
        EXPECT_EQ(m_table->Bytes(), before);
        m_stack.redo();
        EXPECT_EQ(m_table->Bytes(), after);
        return after;
    }

    [[nodiscard]] std::unique_ptr<QUndoCommand> Typed(int row, int column, const char* text) {
        CellEdit edit(m_model);
        edit.Set(row, column, S(text));
        return edit.Command();
    }

    [[nodiscard]] QVariant Data(int row, int column, int role) const {
        return m_model.data(m_model.index(row, column), role);
    }

    ListTableModel m_model{*m_application};
    QAbstractItemModelTester m_tester{&m_model};
    std::unique_ptr<ListTable> m_table;
    QUndoStack m_stack;
};

TEST_F(ListTableModelTest, ShowsRowsAndNames) {
    EXPECT_EQ(m_model.rowCount(), 4);
    EXPECT_EQ(m_model.columnCount(), 2);
    EXPECT_EQ(Data(1, 1, Qt::DisplayRole).toString(), S("y"));
    EXPECT_EQ(m_model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), S("B"));
    EXPECT_EQ(m_model.headerData(1, Qt::Vertical, Qt::DisplayRole).toInt(), 2);
    EXPECT_TRUE(m_model.flags(m_model.index(0, 0)).testFlag(Qt::ItemIsEditable));
}

TEST_F(ListTableModelTest, ShowsALineBreakAsAMark) {
    Show("A\n\"x\r\ny\nz\xE2\x80\xA8w\"\n");
    EXPECT_EQ(Data(0, 0, Qt::DisplayRole).toString(), S("x\u21B5y\u21B5z\u21B5w"));
    EXPECT_EQ(Data(0, 0, Qt::EditRole).toString(), S("x\r\ny\nz\u2028w"));
}

TEST_F(ListTableModelTest, ShowsAsMuchOfALongTextAsCanBeSeen) {
    Show("A\n" + QByteArray(100'000, 'x') + '\n');
    EXPECT_EQ(Data(0, 0, Qt::DisplayRole).toString().size(), 1000);
    EXPECT_EQ(Data(0, 0, Qt::EditRole).toString().size(), 100'000);
}

TEST_F(ListTableModelTest, NameInATipIsPlainText) {
    Show("<b>A</b>\n1\n");
    EXPECT_EQ(m_model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), S("<b>A</b>"));
    EXPECT_EQ(m_model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(),
              S("<p>&lt;b&gt;A&lt;/b&gt;</p>"));
}

TEST_F(ListTableModelTest, MarksWhatDoesNotFitItsType) {
    m_model.SetMisfitColour(Qt::red);
    Show("N,D,T\n1,20260131,x\na,31/1/26,1\n", {{S("N"), S("NUMBER")}, {S("D"), S("DATE")}});
    for (int column = 0; column < 3; ++column)
        EXPECT_FALSE(Data(0, column, Qt::BackgroundRole).isValid());
    EXPECT_EQ(Data(1, 0, Qt::BackgroundRole).value<QColor>(), QColor(Qt::red));
    EXPECT_EQ(Data(1, 0, Qt::ToolTipRole).toString(), S("This is no number. A number has a decimal point."));
    EXPECT_EQ(Data(1, 1, Qt::ToolTipRole).toString(),
              S("This is no date. A date has eight digits: year, month and day."));
    EXPECT_FALSE(Data(1, 2, Qt::ToolTipRole).isValid());
}

TEST_F(ListTableModelTest, TypingIsUndoneByteForByte) {
    EXPECT_EQ(Done(Typed(0, 1, "new")), "A,B\n1,new\n2,y\n3\n4,z,more\n");
    EXPECT_EQ(Typed(1, 1, "y"), nullptr);
}

TEST_F(ListTableModelTest, EachTextThatACellGetsComesBack) {
    m_stack.push(Typed(2, 1, "first").release());
    m_stack.push(Typed(2, 1, "second").release());
    m_stack.undo();
    EXPECT_EQ(m_table->Text(2, 1), S("first"));
    m_stack.undo();
    EXPECT_EQ(m_table->Bytes(), kFile);
}

TEST_F(ListTableModelTest, CellsOfSeveralRowsChangeTogether) {
    CellEdit edit(m_model);
    edit.Set(0, 0, {});
    edit.Set(0, 1, {});
    edit.Set(1, 1, S("y"));
    edit.Set(3, 0, S("w"));
    EXPECT_EQ(Done(edit.Command()), "A,B\n,\n2,y\n3\nw,z,more\n");
    EXPECT_EQ(CellEdit(m_model).Command(), nullptr);
}

TEST_F(ListTableModelTest, RowsAreInserted) {
    EXPECT_EQ(Done(InsertRowsCommand(m_model, 1, {ListTable::BlankRow(), m_table->Row(3)})),
              "A,B\n\"1\",x\n,\n4,z,more\n2,y\n3\n4,z,more\n");
}

TEST_F(ListTableModelTest, RowsAreDeleted) {
    EXPECT_EQ(Done(DeleteRowsCommand(m_model, {0, 2, 3})), "A,B\n2,y\n");
    EXPECT_EQ(Done(DeleteRowsCommand(m_model, {0})), "A,B\n");
}

TEST_F(ListTableModelTest, ManyScatteredRowsAreDeleted) {
    QByteArray bytes = "A\n";
    QByteArray left = "A\n";
    std::vector<int> places;
    for (int row = 0; row < 1000; ++row) {
        bytes += QByteArray::number(row) + '\n';
        if (row % 2 == 0) {
            places.push_back(row);
        } else {
            left += QByteArray::number(row) + '\n';
        }
    }
    Show(bytes);
    EXPECT_EQ(Done(DeleteRowsCommand(m_model, places)), left);
}

TEST_F(ListTableModelTest, RowsMoveByOne) {
    EXPECT_EQ(Done(MoveRowsCommand(m_model, {1, 2}, false)), "A,B\n2,y\n3\n\"1\",x\n4,z,more\n");
    EXPECT_EQ(Done(MoveRowsCommand(m_model, {0}, true)), "A,B\n3\n2,y\n\"1\",x\n4,z,more\n");
}

TEST_F(ListTableModelTest, RowsAtTheEndStayAndOthersMoveUpToThem) {
    EXPECT_EQ(MoveRowsCommand(m_model, {0, 1}, false), nullptr);
    EXPECT_EQ(MoveRowsCommand(m_model, {3}, true), nullptr);
    EXPECT_EQ(Done(MoveRowsCommand(m_model, {1, 3}, true)), "A,B\n\"1\",x\n3\n2,y\n4,z,more\n");
}

TEST_F(ListTableModelTest, WhatIsRememberedFollowsItsRow) {
    const QPersistentModelIndex cell(m_model.index(1, 0));
    m_stack.push(ReorderCommand(m_model, 0, {3, 2, 1, 0}).release());
    EXPECT_EQ(cell.row(), 2);
    EXPECT_EQ(m_table->Bytes(), "A,B\n4,z,more\n3\n2,y\n\"1\",x\n");
    m_stack.undo();
    EXPECT_EQ(cell.row(), 1);
    EXPECT_EQ(m_table->Bytes(), kFile);
}

TEST_F(ListTableModelTest, ColumnsComeAndGo) {
    EXPECT_EQ(Done(InsertColumnCommand(m_model, 0, m_table->NewColumn(S("N"), S("DATE")))),
              "N,A,B\n,1,x\n,2,y\n,3,\n,4,z,more\n");
    EXPECT_EQ(Done(DeleteColumnCommand(m_model, 1)), "N,B\n,x\n,y\n,\n,z,more\n");
}

TEST_F(ListTableModelTest, ColumnsAreRenamedAndTyped) {
    ListColumn column = m_table->Column(0);
    column.name = S("C");
    column.type = S("NUMBER");
    EXPECT_EQ(Done(ChangeColumnCommand(m_model, 0, column)), "C,B\n\"1\",x\n2,y\n3\n4,z,more\n");
    EXPECT_EQ(m_table->Column(0).type, S("NUMBER"));
    m_stack.undo();
    EXPECT_EQ(m_table->Column(0).type, S("TEXT"));
}

TEST_F(ListTableModelTest, TellsWhereTheLastChangeWas) {
    m_stack.push(Typed(2, 1, "x").release());
    EXPECT_EQ(m_model.Touched(0), m_model.index(2, 1));
    m_stack.push(DeleteRowsCommand(m_model, {3}).release());
    EXPECT_EQ(m_model.Touched(0), m_model.index(2, 0));
    m_stack.push(DeleteColumnCommand(m_model, 1).release());
    EXPECT_EQ(m_model.Touched(0), m_model.index(2, 0));
}

}  // namespace

}  // namespace sheetwright

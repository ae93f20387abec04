#include "ui/list_program.h"

#include "fields/editing.h"
#include "mdi_sheetwright_test.h"
#include "ui/page_view.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace sheetwright {

namespace {

class ListProgramTest : public MdiSheetwrightTest {
  protected:
    ListProgramTest() {
        QDir(m_folder.path()).mkpath(S("current"));
        QDir::setCurrent(Path(S("current")));
    }
    ~ListProgramTest() override { QDir::setCurrent(m_before); }

    QString WriteProgram(const QString& name, const QByteArray& script = "#!/bin/sh\n") const {
        const QString path = Write(name, script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    [[nodiscard]] bool Finds(const QString& path) const {
        return QFileInfo(ListProgram(*m_application)) == QFileInfo(path);
    }

    QString m_before = QDir::currentPath();
};

TEST_F(ListProgramTest, ComesFromTheCurrentFolderBeforeThatOfTheProgram) {
    EXPECT_EQ(ListProgram(*m_application), QString());
    EXPECT_TRUE(Finds(WriteProgram(S("sheetwright-list-editor"))));
    EXPECT_TRUE(Finds(WriteProgram(S("ListEditor"))));
    EXPECT_TRUE(Finds(WriteProgram(S("ListEditor.exe"))));
    EXPECT_TRUE(Finds(WriteProgram(S("current/listeditor"))));
    EXPECT_TRUE(Finds(WriteProgram(S("current/LISTEDITOR.EXE"))));
}

TEST_F(ListProgramTest, IsAFileThatCanBeStarted) {
    Write(S("current/ListEditor.exe"), "text");
    QDir(m_folder.path()).mkpath(S("ListEditor"));
    EXPECT_EQ(ListProgram(*m_application), QString());
}

TEST_F(ListProgramTest, CommandLeavesTheFieldAndStartsIt) {
    WriteProgram(S("ListEditor"), "#!/bin/sh\nmkdir \"$PWD/started\"\n");
    FormWindow* const form = Open(S("form.aff"));
    QTest::keyClicks(QApplication::focusWidget(), S("Sallow"));
    Do("mnuEditlists");
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Sallow"));
    EXPECT_TRUE(form->Document().page->CurrentEntry.IsNone());
    EXPECT_TRUE(QTest::qWaitFor([this] { return QFileInfo::exists(Path(S("current/started"))); }));
}

TEST_F(ListProgramTest, CommandWithoutAProgramIsQuiet) {
    Do("mnuEditlists");
    Open(S("form.aff"));
    Do("mnuEditlists");
    EXPECT_TRUE(m_ui.messages.empty());
}

}  // namespace

}  // namespace sheetwright

#include "support/test_application.h"

#include "core/paths.h"
#include "import/csv_table.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace sheetwright {

MessageAnswer RecordingUserInterface::ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                                                  MessageButtons buttons) {
    messages.push_back({text, title, icon, buttons});
    if (!answers.empty()) {
        const MessageAnswer answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
}

QStringList RecordingUserInterface::MessageTexts() const {
    QStringList texts;
    for (const ShownMessage& message : messages)
        texts << message.text;
    return texts;
}

ApplicationTest::ApplicationTest(const QString& title) {
    Restart(title);
}

void ApplicationTest::Restart(const QString& title) {
    m_application = std::make_unique<Application>(
        title, m_folder.path(), Settings(m_folder.filePath(QStringLiteral("settings"))), m_ui);
}

QString ApplicationTest::Path(const QString& name) const {
    const QString path = m_folder.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    return path;
}

QString ApplicationTest::Write(const QString& name, const QByteArray& bytes) const {
    const QString path = Path(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) ADD_FAILURE() << "can't write";
    return path;
}

QByteArray ApplicationTest::Read(const QString& name) const {
    return ReadWholeFile(m_folder.filePath(name));
}

std::vector<QStringList> ApplicationTest::ErrorRows() const {
    std::vector<QStringList> rows;
    CsvTable table;
    table.SetFileName(m_application->LogFolder + QStringLiteral("errors.csv"));
    for (; !table.AtEnd(); table.MoveNext()) {
        QStringList row;
        for (int column = 1; column <= table.Columns().Count(); ++column)
            row << table.Columns().At(column).Value();
        rows.push_back(row);
    }
    return rows;
}

}  // namespace sheetwright

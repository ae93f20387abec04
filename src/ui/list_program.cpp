#include "ui/list_program.h"

#include "core/application.h"
#include "core/paths.h"

#include <QDir>
#include <QFileInfo>

namespace sheetwright {

namespace {

// Full path of a program of that name; "" when there is none.
QString ProgramAt(const QString& folder, const QString& name) {
    const QFileInfo program(OnDisk(folder + name));
    return program.isFile() && program.isExecutable() ? program.absoluteFilePath() : QString();
}

}  // namespace

QString ListProgram(const Application& application) {
    const QString own = QStringLiteral("sheetwright-list-editor");
    for (const QString& folder : {QDir::currentPath() + u'/', application.InstallFolder}) {
        for (const QString& name : {QStringLiteral("ListEditor.exe"), QStringLiteral("ListEditor")})
            if (const QString program = ProgramAt(folder, name); !program.isEmpty()) return program;
    }
    return ProgramAt(application.InstallFolder, own);
}

}  // namespace sheetwright

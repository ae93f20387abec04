#include "import/download_problem.h"

#include "core/application.h"
#include "core/failure.h"
#include "import/download_run.h"
#include "import/driver_file.h"

namespace sheetwright {

namespace {

// "" for a program that has ended well.
QString ProblemOf(const Application& application, const DriverFile& driver, const DownloadRun& run,
                  RunEnd end) {
    const QString exit = Parameters({driver.caption, QString::number(run.ExitCode())});
    const QString limit = Parameters({driver.caption, QString::number(driver.timeLimit)});
    switch (end) {
        case RunEnd::NotStarted:
            return application.Translate(QStringLiteral("The program of %1 cannot be started."), exit);
        case RunEnd::Crashed:
            return application.Translate(QStringLiteral("The program of %1 has crashed."), exit);
        case RunEnd::TimeUp:
            return application.Translate(
                QStringLiteral("The program of %1 took longer than %2 seconds and was stopped."), limit);
        case RunEnd::TooMuch:
            return application.Translate(QStringLiteral("The program of %1 wrote too much and was stopped."),
                                         exit);
        case RunEnd::Exited:
        case RunEnd::Cancelled:
            break;
    }
    if (run.ExitCode() == 0) return {};
    return application.Translate(QStringLiteral("The program of %1 has failed (code %2)."), exit);
}

}  // namespace

QString Parameters(const QStringList& values) {
    constexpr QChar kSeparator(u'\u00A6');
    QStringList plain = values;
    for (QString& value : plain)
        value.replace(kSeparator, u'|');
    return plain.join(kSeparator);
}

void RaiseProblem(const QString& text) {
    throw Failure(failure::kInvalidFormat, text);
}

void RaiseUnlessDone(const Application& application, const DriverFile& driver, const DownloadRun& run,
                     RunEnd end) {
    if (end == RunEnd::Cancelled) throw Failure(failure::kCancelled);
    const QString problem = ProblemOf(application, driver, run, end);
    if (problem.isEmpty()) return;
    const QString lines = run.LastLines();
    RaiseProblem(lines.isEmpty() ? problem : problem + QStringLiteral("\n\n") + lines);
}

}  // namespace sheetwright

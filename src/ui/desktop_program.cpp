#include "ui/desktop_program.h"

#include "core/failure.h"
#include "core/run_command.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <exception>

namespace sheetwright {

void SpeakTheSystemsLanguage(QApplication& desktop) {
    auto* const words = new QTranslator(&desktop);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (words->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        desktop.installTranslator(words);
}

void TellEscaped(Application& application) {
    RunCommand(application, QStringLiteral("notify"), [] {
        try {
            throw;
        } catch (const Failure&) {
            throw;
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& caught) {
            throw Failure(failure::kInvalidCall, QString::fromLocal8Bit(caught.what()));
        } catch (...) {
            throw Failure(failure::kInvalidCall);
        }
    });
}

}  // namespace sheetwright

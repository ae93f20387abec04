#include "core/run_command.h"

#include "core/application.h"
#include "core/error_log.h"

namespace sheetwright {

namespace {

// Texts that the failure itself has made up are told to support as well.
QString AdditionalText(const Failure& caught) {
    return caught.Text() == FailureText(caught.Number()) ? QString() : caught.Text();
}

// In English when the failure is the dictionary's own. A text that held the separator of parameters would be
// cut there.
QString MessageOf(const Application& application, const Failure& caught) {
    const QChar separator(u'\u00A6');
    const QString number = QString::number(caught.Number());
    QString message = number + QStringLiteral(": ") + caught.Text();
    Ignoring([&] {
        const QString parameters = number + separator + QString(caught.Text()).replace(separator, u'|');
        message = application.Translate(QStringLiteral("Error %1: %2"), parameters);
    });
    return message;
}

void Report(Application& application, const QString& name, const Failure& caught) {
    Ignoring([&] { LogError(application, name, AdditionalText(caught), caught.Number()); });
    application.ui.ShowMessage(MessageOf(application, caught), application.Title, MessageIcon::Critical);
}

}  // namespace

std::optional<Failure> RunCommand(Application& application, const QString& name,
                                  const std::function<void()>& command) {
    std::optional<Failure> caught = Catching(command);
    if (caught) Report(application, name, *caught);
    return caught;
}

}  // namespace sheetwright

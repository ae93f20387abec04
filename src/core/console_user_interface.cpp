#include "core/console_user_interface.h"

#include <algorithm>
#include <cstdio>

namespace sheetwright {

namespace {

// Control characters become blanks, so that a message stays one line whatever it quotes.
QString OnOneLine(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::replace_if(
        text.begin(), text.end(), [](QChar unit) { return unit.category() == QChar::Other_Control; }, u' ');
    return text.trimmed();
}

void PrintLine(QLatin1StringView kind, const QString& text) {
    const QByteArray line = (kind + OnOneLine(text) + u'\n').toUtf8();
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

}  // namespace

MessageAnswer ConsoleUserInterface::ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                                                MessageButtons buttons) {
    const bool isTitled = !title.isEmpty() && title != m_ownTitle && title != text;
    const QString whole = isTitled ? title + QStringLiteral(": ") + text : text;
    if (icon == MessageIcon::Critical) {
        PrintError(whole);
    } else {
        PrintWarning(whole);
    }
    return SilentUserInterface::ShowMessage(text, title, icon, buttons);
}

void ConsoleUserInterface::PrintError(const QString& text) {
    PrintLine(QLatin1StringView("error: "), text);
}

void ConsoleUserInterface::PrintWarning(const QString& text) {
    PrintLine(QLatin1StringView("warning: "), text);
}

}  // namespace sheetwright

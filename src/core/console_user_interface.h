#pragma once

// The interface of a program without windows: messages go to standard error as "error: …" or "warning: …",
// all else is silent. Every question is answered by its first button.

#include "core/user_interface.h"

#include <QString>

namespace sheetwright {

class ConsoleUserInterface : public SilentUserInterface {
  public:
    // A critical message is an error, any other a warning. Its title stands before the text, unless it is the
    // program's own or says the same.
    MessageAnswer ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                              MessageButtons buttons) override;

    // The program's own title, which says nothing in front of a message.
    void SetOwnTitle(const QString& title) { m_ownTitle = title; }

    // One line on standard error, in UTF-8. Line breaks and other control characters of the text become
    // blanks.
    static void PrintError(const QString& text);
    static void PrintWarning(const QString& text);

  private:
    QString m_ownTitle;
};

}  // namespace sheetwright

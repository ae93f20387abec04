#include "apps/driver_program/delivered_table.h"

#include "core/failure.h"
#include "core/paths.h"

#ifdef Q_OS_UNIX
#include <csignal>
#endif

namespace sheetwright {

namespace {

constexpr std::int64_t kMostCharacters = 100'000'000;

#ifdef Q_OS_UNIX
// Ending between the creation of the file beside and its renaming would leave that behind.
class TerminationHeld {
  public:
    TerminationHeld() {
        sigset_t requests;
        sigemptyset(&requests);
        for (const int number : {SIGTERM, SIGINT, SIGHUP})
            sigaddset(&requests, number);
        sigprocmask(SIG_BLOCK, &requests, &m_before);
    }
    TerminationHeld(const TerminationHeld&) = delete;
    TerminationHeld& operator=(const TerminationHeld&) = delete;
    ~TerminationHeld() { sigprocmask(SIG_SETMASK, &m_before, nullptr); }

  private:
    sigset_t m_before{};
};
#else
struct TerminationHeld {};
#endif

}  // namespace

DeliveredTable::DeliveredTable(const QStringList& columns) {
    Append(columns);
}

void DeliveredTable::AddRecord(const QStringList& values) {
    Append(values);
    ++m_recordCount;
}

void DeliveredTable::Append(const QStringList& values) {
    for (const QString& value : values)
        m_characters += value.size() + 1;
    if (m_characters > kMostCharacters)
        throw Failure(failure::kOutOfMemory, QStringLiteral("The table would grow beyond 100 MB"));
    for (qsizetype index = 0; index < values.size(); ++index) {
        if (index > 0) m_writer.AppendComma();
        m_writer.AppendValue(values[index]);
    }
    m_writer.EndRecord("\r\n");
}

void DeliveredTable::WriteTo(const QString& path) {
    [[maybe_unused]] const TerminationHeld held;
    try {
        WriteFileAtomically(path, m_writer.Take().value());  // every text fits UTF-8
    } catch (const Failure& caught) {
        throw Failure(caught.Number(), QStringLiteral("%1 can't be written: %2").arg(path, caught.Text()));
    }
}

}  // namespace sheetwright

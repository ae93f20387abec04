#pragma once

// What an instrument sends, byte by byte as it comes, turned into the records of a table. It knows nothing of
// connections, and trusts the instrument in nothing.

#include "apps/driver_program/delivered_table.h"
#include "apps/line_reader/reader_config.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <functional>

namespace sheetwright {

enum class Silence { Closed, Idle };  // why nothing more comes

class Transmission {
  public:
    // `tell` takes words about the progress.
    Transmission(const ReaderConfig& config, std::function<void(const QString&)> tell);

    // Takes up to the end mark and leaves the rest. Raises 321 for a line that does not fit and 57 for more
    // than the limits allow: lines, bytes of a line, 100 MB altogether.
    void Take(QByteArrayView bytes);

    [[nodiscard]] bool IsOver() const { return m_isOver; }  // the end mark came

    // Nothing more comes. Raises 57 unless that is how a transmission ends: not before the end mark where
    // there is one, not within a line, not before the first record.
    void Finish(Silence silence);

    [[nodiscard]] DeliveredTable& Table() { return m_table; }

  private:
    void CountBytes(qsizetype count);
    [[nodiscard]] QByteArrayView WithoutLineEnd(qsizetype start, qsizetype end) const;
    void TakeLine(QByteArrayView line);
    [[nodiscard]] QString Decoded(QByteArrayView line) const;
    [[nodiscard]] bool IsPassedOver(const QString& line) const;
    [[nodiscard]] bool IsEndMark(const QString& line) const;
    void AddRecordOf(const QString& line);
    void RefuseLine(QByteArrayView line, const QString& reason);
    void TellRecord(const QStringList& record) const;

    const ReaderConfig& m_config;
    std::function<void(const QString&)> m_tell;
    CsvCodec m_codec;
    DeliveredTable m_table;
    QByteArray m_pending;  // behind the last line end
    qsizetype m_searched = 0;
    std::int64_t m_bytes = 0;
    int m_lines = 0;
    bool m_isOver = false;
};

}  // namespace sheetwright

#pragma once

// What a driver's program prints: text that comes in pieces, of which little is kept.

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

namespace sheetwright {

class DownloadOutput {
  public:
    void Add(QByteArrayView bytes);

    [[nodiscard]] qint64 Size() const { return m_size; }  // bytes so far

    // What came since the last call. Of much text only the end, behind a line that says so.
    [[nodiscard]] QString TakeNew();

    // The last lines that say something, as a person would have seen them.
    [[nodiscard]] QString LastLines() const;

  private:
    QStringDecoder m_decoder{QStringDecoder::Utf8};
    QString m_new;
    QString m_tail;
    qint64 m_size = 0;
    bool m_hasGap = false;
};

}  // namespace sheetwright

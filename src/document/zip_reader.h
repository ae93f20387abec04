#pragma once

// Reads a zip archive member by member. It knows nothing of forms: what is fit to be unpacked is decided by
// the rules of the form archive.

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

struct zip;

namespace sheetwright {

struct ZipMember {
    std::uint64_t index = 0;
    QString name;            // as in the directory, folders included; the library makes a NUL in it a blank
    std::uint64_t size = 0;  // unpacked bytes, as the directory claims
    bool isEncrypted = false;
    bool isPlainFile = true;  // false for links, devices and whatever else an archive can describe
};

class ZipReader {
  public:
    enum class Check { Usual, Strict };  // strict: the local headers must repeat what the directory says

    // Opens an archive and reads its directory. Names that are no UTF-8 are taken to be in the code page of
    // old zip programs (437). Raises 321 when it is damaged or no archive, 67 for more than `mostMembers`,
    // and what the disk raises.
    ZipReader(const QString& path, std::uint64_t mostMembers, Check check = Check::Usual);

    [[nodiscard]] const std::vector<ZipMember>& Members() const { return m_members; }

    // Unpacks one member piece by piece; what `take` raises ends it. Raises 321 when the data are damaged,
    // cut short, don't have the size or the checksum that the directory says, or are packed by an unknown
    // method; 70 when they are encrypted.
    void Read(const ZipMember& member, const std::function<void(QByteArrayView)>& take) const;

  private:
    struct Discard {
        void operator()(zip* archive) const;
    };

    [[nodiscard]] ZipMember Describe(std::uint64_t index) const;
    [[nodiscard]] QString NameOf(std::uint64_t index) const;

    std::unique_ptr<zip, Discard> m_archive;
    std::vector<ZipMember> m_members;
};

}  // namespace sheetwright

#pragma once

// Builds archives byte by byte, also such as no zip program would make.

#include <QByteArray>
#include <QtEndian>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace sheetwright {

struct BuiltMember {
    QByteArray name{};
    QByteArray data{};
    bool isDeflated = false;
    std::uint16_t flags = 0;   // bit 0: encrypted, bit 11: the name is UTF-8
    std::uint16_t madeBy = 0;  // upper byte 3: attributes are those of Unix
    std::uint32_t attributes = 0;
    std::optional<std::uint32_t> claimedSize{};  // instead of the true one
    std::optional<std::uint32_t> claimedChecksum{};
    std::optional<std::uint16_t> method{};
};

inline std::array<std::uint32_t, 256> Crc32Table() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = byte;
        for (int bit = 0; bit < 8; ++bit)
            table[byte] = (table[byte] >> 1) ^ ((table[byte] & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return table;
}

inline std::uint32_t Crc32(const QByteArray& bytes) {
    const std::array<std::uint32_t, 256> table = Crc32Table();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes)
        crc = (crc >> 8) ^ table[(crc ^ static_cast<unsigned char>(byte)) & 0xFFU];
    return ~crc;
}

template <typename Integer>
void AppendLittle(QByteArray& bytes, Integer number) {
    std::array<char, sizeof(Integer)> little{};
    qToLittleEndian(number, little.data());
    bytes.append(little.data(), sizeof(Integer));
}

// Data as deflate stores them, without the frame that qCompress puts around: its length, and zlib's two bytes
// before and four behind.
inline QByteArray Deflated(const QByteArray& data) {
    return qCompress(data, 9).sliced(6).chopped(4);
}

inline QByteArray HeaderOf(const BuiltMember& member, qsizetype packedSize) {
    QByteArray header;
    AppendLittle<std::uint16_t>(header, 20);
    AppendLittle<std::uint16_t>(header, member.flags);
    AppendLittle<std::uint16_t>(header, member.method.value_or(member.isDeflated ? 8 : 0));
    AppendLittle<std::uint32_t>(header, 0x00210000);  // the first of January 1980
    AppendLittle<std::uint32_t>(header,
                                member.claimedChecksum ? *member.claimedChecksum : Crc32(member.data));
    AppendLittle<std::uint32_t>(header, static_cast<std::uint32_t>(packedSize));
    AppendLittle<std::uint32_t>(header,
                                member.claimedSize.value_or(static_cast<std::uint32_t>(member.data.size())));
    AppendLittle<std::uint16_t>(header, static_cast<std::uint16_t>(member.name.size()));
    AppendLittle<std::uint16_t>(header, 0);  // extra fields
    return header;
}

inline QByteArray BuildZip(const std::vector<BuiltMember>& members) {
    QByteArray archive;
    QByteArray directory;
    for (const BuiltMember& member : members) {
        const QByteArray packed = member.isDeflated ? Deflated(member.data) : member.data;
        const QByteArray header = HeaderOf(member, packed.size());
        directory.append("PK\x01\x02");
        AppendLittle<std::uint16_t>(directory, member.madeBy);
        directory.append(header);
        AppendLittle<std::uint32_t>(directory, 0);  // comment, disk
        AppendLittle<std::uint16_t>(directory, 0);
        AppendLittle<std::uint32_t>(directory, member.attributes);
        AppendLittle<std::uint32_t>(directory, static_cast<std::uint32_t>(archive.size()));
        directory.append(member.name);
        archive.append("PK\x03\x04").append(header).append(member.name).append(packed);
    }
    const auto start = static_cast<std::uint32_t>(archive.size());
    archive.append(directory).append("PK\x05\x06");
    AppendLittle<std::uint32_t>(archive, 0);
    AppendLittle<std::uint16_t>(archive, static_cast<std::uint16_t>(members.size()));
    AppendLittle<std::uint16_t>(archive, static_cast<std::uint16_t>(members.size()));
    AppendLittle<std::uint32_t>(archive, static_cast<std::uint32_t>(directory.size()));
    AppendLittle<std::uint32_t>(archive, start);
    AppendLittle<std::uint16_t>(archive, 0);
    return archive;
}

}  // namespace sheetwright

#pragma once

// Packs files into a new zip archive.

#include <QString>

#include <vector>

namespace sheetwright {

class NewFile;

struct FileToPack {
    QString name;  // the member's name
    QString path;
};

enum class Packing { Deflated, Stored };

// Makes `output` an archive with one member for each file, in order, names in UTF-8, whatever it held before.
// Raises what reading the files and writing the archive raises: 53 for a file that has gone, 61 when the disk
// is full.
void WriteZip(const NewFile& output, const std::vector<FileToPack>& files, Packing packing);

}  // namespace sheetwright

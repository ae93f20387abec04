#pragma once

// Small metafiles, made record by record.

#include <QByteArray>

#include <algorithm>
#include <initializer_list>

namespace sheetwright {

class MetafileBuilder {
  public:
    // Parameters in the order of the file: the reverse of how the drawing calls take them.
    MetafileBuilder& Record(int function, std::initializer_list<int> parameters) {
        QByteArray words;
        for (const int parameter : parameters)
            AppendWord(words, parameter);
        return Bytes(function, words);
    }

    // A record with such parameters, filled up to whole words.
    MetafileBuilder& Bytes(int function, QByteArray parameters) {
        if (parameters.size() % 2 != 0) parameters += '\0';
        const int words = 3 + static_cast<int>(parameters.size() / 2);
        AppendWord(m_records, words);
        AppendWord(m_records, words >> 16);
        AppendWord(m_records, function);
        m_records += parameters;
        m_largest = std::max(m_largest, words);
        return *this;
    }

    MetafileBuilder& Window(int left, int top, int width, int height) {
        return Record(0x020B, {top, left}).Record(0x020C, {height, width});
    }
    MetafileBuilder& MapMode(int mode) { return Record(0x0103, {mode}); }
    // Objects are numbered from 0 in the order in which they are made.
    MetafileBuilder& SolidBrush(int red, int green, int blue) {
        return Record(0x02FC, {0, red | green << 8, blue, 0});
    }
    MetafileBuilder& NoPen() { return Record(0x02FA, {5, 0, 0, 0, 0}); }
    MetafileBuilder& Font(int height, const QByteArray& name) {
        QByteArray font;
        for (const int word : {-height, 0, 0, 0, 400, 0, 0, 0, 0})
            AppendWord(font, word);
        return Bytes(0x02FB, font + name + '\0');
    }
    MetafileBuilder& Select(int object) { return Record(0x012D, {object}); }
    MetafileBuilder& TransparentBackground() { return Record(0x0102, {1}); }
    MetafileBuilder& Rectangle(int left, int top, int right, int bottom) {
        return Record(0x041B, {bottom, right, top, left});
    }
    MetafileBuilder& Ellipse(int left, int top, int right, int bottom) {
        return Record(0x0418, {bottom, right, top, left});
    }
    MetafileBuilder& Polygon(std::initializer_list<int> coordinates) {
        QByteArray words;
        AppendWord(words, static_cast<int>(coordinates.size() / 2));
        for (const int coordinate : coordinates)
            AppendWord(words, coordinate);
        return Bytes(0x0324, words);
    }
    MetafileBuilder& Text(int x, int y, const QByteArray& text) {
        QByteArray parameters;
        AppendWord(parameters, static_cast<int>(text.size()));
        parameters += text;
        if (text.size() % 2 != 0) parameters += '\0';
        AppendWord(parameters, y);
        AppendWord(parameters, x);
        return Bytes(0x0521, parameters);
    }

    [[nodiscard]] QByteArray Plain() const {
        const qsizetype words = 9 + m_records.size() / 2 + 3;
        QByteArray file;
        for (const int word : {1, 9, 0x300, static_cast<int>(words), static_cast<int>(words >> 16), kObjects,
                               m_largest, m_largest >> 16, 0})
            AppendWord(file, word);
        return file + m_records + QByteArray::fromHex("030000000000");
    }

    // With the header that tells box and size.
    [[nodiscard]] QByteArray Placeable(int left, int top, int right, int bottom, int unitsPerInch) const {
        QByteArray header;
        int sum = 0;
        for (const int word : {0xCDD7, 0x9AC6, 0, left, top, right, bottom, unitsPerInch, 0, 0}) {
            AppendWord(header, word);
            sum ^= word;
        }
        AppendWord(header, sum);
        return header + Plain();
    }

  private:
    static constexpr int kObjects = 10;

    static void AppendWord(QByteArray& bytes, int word) {
        bytes += static_cast<char>(word);
        bytes += static_cast<char>(word >> 8);
    }

    QByteArray m_records;
    int m_largest = 3;
};

}  // namespace sheetwright

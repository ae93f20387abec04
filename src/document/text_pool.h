#pragma once

// Short texts that occur again and again, such as the keys and words of a design's records, kept once: equal
// ones share their characters.

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <functional>
#include <unordered_set>

namespace sheetwright {

class TextPool {
  public:
    // `text` as a string that shares its characters with every equal one that came from here. Long texts
    // hardly ever occur twice: they get characters of their own.
    [[nodiscard]] QString Shared(QStringView text) {
        constexpr qsizetype kLongest = 24;
        if (text.size() > kLongest) return text.toString();
        const auto known = m_texts.find(text);
        return known != m_texts.end() ? *known : *m_texts.insert(text.toString()).first;
    }

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(QStringView text) const noexcept {
            return qHash(text, QHashSeed::globalSeed());
        }
    };
    std::unordered_set<QString, Hash, std::equal_to<>> m_texts;
};

}  // namespace sheetwright

#pragma once

// An ordered collection with optional string keys, the container on which records, titles and formulas rest.
// Keys compare without regard to case. Adding a key twice, or asking for what is not there, is a failure:
// much of the program uses that failure as its test.

#include "core/failure.h"

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace sheetwright {

struct CaseInsensitiveHash {
    using is_transparent = void;
    std::size_t operator()(QStringView text) const noexcept {
        std::size_t hash =
            14695981039346656037ULL ^ QHashSeed::globalSeed();  // keys come from strangers' files
        for (const QChar character : text)
            hash = (hash ^ Folded(character)) * 1099511628211ULL;
        return hash;
    }
    static char16_t Folded(QChar character) noexcept {
        const char16_t unit = character.unicode();
        if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
        return character.toCaseFolded().unicode();
    }
};

struct CaseInsensitiveEqual {
    using is_transparent = void;
    bool operator()(QStringView left, QStringView right) const noexcept {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](QChar a, QChar b) {
            return CaseInsensitiveHash::Folded(a) == CaseInsensitiveHash::Folded(b);
        });
    }
};

template <typename Item>
class KeyedCollection {
  public:
    struct Entry {
        QString key;
        Item item;
        bool hasKey = true;
    };

    [[nodiscard]] int Count() const { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_entries.empty(); }

    // Adds an item at the end. Raises 457 when `key` is already there.
    void Add(Item item) { m_entries.push_back({QString(), std::move(item), false}); }
    void Add(Item item, const QString& key) { Insert(std::move(item), key, Count() + 1); }

    // Puts an item at `position`, counted from 1; one past the end appends. Raises 9 for a position outside
    // the collection and 457 when `key` is already there.
    void Insert(Item item, const QString& key, int position) {
        if (position < 1 || position > Count() + 1) throw Failure(failure::kSubscript);
        if (m_positions.contains(QStringView(key))) throw Failure(failure::kKeyExists);
        m_entries.insert(m_entries.begin() + (position - 1), Entry{key, std::move(item)});
        if (position == Count()) {
            m_positions.emplace(key, position - 1);
        } else {
            Reindex();
        }
    }

    // Raise 5 when there is no such key, 9 when the position (from 1) is outside the collection.
    [[nodiscard]] const Item& At(QStringView key) const { return m_entries[Position(key)].item; }
    [[nodiscard]] Item& At(QStringView key) { return m_entries[Position(key)].item; }
    [[nodiscard]] const Item& At(int position) const { return m_entries[Checked(position)].item; }
    [[nodiscard]] Item& At(int position) { return m_entries[Checked(position)].item; }

    // The item under `key`, or none: for lookups whose miss is an ordinary outcome.
    [[nodiscard]] const Item* Find(QStringView key) const {
        const auto found = m_positions.find(key);
        return found == m_positions.end() ? nullptr : &m_entries[found->second].item;
    }
    [[nodiscard]] bool Contains(QStringView key) const { return Find(key) != nullptr; }

    void Remove(QStringView key) { RemoveIndex(Position(key)); }
    void Remove(int position) { RemoveIndex(Checked(position)); }
    void Clear() {
        m_entries.clear();
        m_positions.clear();
    }

    // Entries in order, for walks that need keys and items together.
    [[nodiscard]] const std::vector<Entry>& Entries() const { return m_entries; }

  private:
    [[nodiscard]] std::size_t Position(QStringView key) const {
        const auto found = m_positions.find(key);
        if (found == m_positions.end()) throw Failure(failure::kInvalidCall);
        return found->second;
    }
    [[nodiscard]] std::size_t Checked(int position) const {
        if (position < 1 || position > Count()) throw Failure(failure::kSubscript);
        return static_cast<std::size_t>(position - 1);
    }
    void RemoveIndex(std::size_t index) {
        const bool isLast = index + 1 == m_entries.size();
        if (isLast && m_entries[index].hasKey)
            m_positions.erase(m_positions.find(QStringView(m_entries[index].key)));
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(index));
        if (!isLast) Reindex();
    }
    void Reindex() {
        m_positions.clear();
        for (std::size_t index = 0; index < m_entries.size(); ++index)
            if (m_entries[index].hasKey) m_positions.emplace(m_entries[index].key, index);
    }

    std::vector<Entry> m_entries;
    std::unordered_map<QString, std::size_t, CaseInsensitiveHash, CaseInsensitiveEqual> m_positions;
};

}  // namespace sheetwright

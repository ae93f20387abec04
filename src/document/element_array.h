#pragma once

// The elements of one kind on a page, numbered from 1.

#include "core/failure.h"

#include <vector>

namespace sheetwright {

// The kinds of elements that a person can enter, and one element of a page.
enum class ElementKind { None, Entry, Check, Bitmap };

struct ElementRef {
    ElementKind kind = ElementKind::None;
    int number = 0;  // from 1; 0 for none

    [[nodiscard]] bool IsNone() const { return kind == ElementKind::None; }
    bool operator==(const ElementRef&) const = default;
};

template <typename Element>
class ElementArray {
  public:
    [[nodiscard]] int Count() const { return static_cast<int>(m_elements.size()); }

    // Raise 340 for an element that isn't there.
    [[nodiscard]] Element& At(int number) { return m_elements[Index(number)]; }
    [[nodiscard]] const Element& At(int number) const { return m_elements[Index(number)]; }

    // The new element is the last one.
    Element& Load(Element element) { return m_elements.emplace_back(std::move(element)); }
    void UnloadAll() { m_elements.clear(); }

    [[nodiscard]] auto begin() { return m_elements.begin(); }
    [[nodiscard]] auto end() { return m_elements.end(); }
    [[nodiscard]] auto begin() const { return m_elements.begin(); }
    [[nodiscard]] auto end() const { return m_elements.end(); }

  private:
    [[nodiscard]] std::size_t Index(int number) const {
        if (number < 1 || number > Count()) throw Failure(failure::kNoSuchElement);
        return static_cast<std::size_t>(number - 1);
    }

    std::vector<Element> m_elements;
};

}  // namespace sheetwright

#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace brusbo {

/// An array whose indices run from `first` to `last`, both included. An index outside them is a
/// programming error and stops the program.
template <typename T, int first, int last>
class IndexedArray {
   public:
    constexpr T& operator[](int index) {
        assert(index >= first && index <= last);
        return items_[static_cast<std::size_t>(index - first)];
    }
    constexpr const T& operator[](int index) const {
        assert(index >= first && index <= last);
        return items_[static_cast<std::size_t>(index - first)];
    }

    constexpr void fill(const T& value) { items_.fill(value); }
    static constexpr IndexedArray filled(const T& value) {
        IndexedArray result;
        result.fill(value);
        return result;
    }
    constexpr auto begin() { return items_.begin(); }
    constexpr auto end() { return items_.end(); }
    constexpr auto begin() const { return items_.begin(); }
    constexpr auto end() const { return items_.end(); }

    bool operator==(const IndexedArray&) const = default;

   private:
    std::array<T, static_cast<std::size_t>(last - first + 1)> items_{};
};

}  // namespace brusbo

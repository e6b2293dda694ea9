#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace HYGRION {

/// What differs between two states of a list. exchange() turns one into the other and keeps what is needed for the way
/// back, so the memory taken is that of the items that differ.
template <typename Item> class ListChange {
public:
    ListChange() = default;
    /// The way from \p before to \p after.
    ListChange(const std::vector<Item> & before, std::vector<Item> after) {
        std::size_t first = 0;
        const std::size_t shorter = std::min(before.size(), after.size());
        while (first < shorter && before[first] == after[first])
            ++first;
        std::size_t tail = 0;
        while (tail < shorter - first && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
            ++tail;
        compare(before, after, first, before.size() - tail, after.size() - tail);
    }

    bool empty() const { return m_hunks.empty(); }
    /// Number of items kept.
    std::size_t size() const {
        std::size_t count = 0;
        for (const Hunk & hunk : m_hunks)
            count += hunk.items.size();
        return count;
    }

    /// \param list in the state before the change; is in the state after it then, and the reverse the next time
    void exchange(std::vector<Item> & list) {
        const bool keepsSize = std::all_of(m_hunks.begin(), m_hunks.end(),
                                           [](const Hunk & hunk) { return hunk.count == hunk.items.size(); });
        if (keepsSize) {
            for (Hunk & hunk : m_hunks)
                std::swap_ranges(hunk.items.begin(), hunk.items.end(), at(list, hunk.first));
            return;
        }
        std::vector<Item> result;
        std::size_t taken = 0; // of the list
        for (Hunk & hunk : m_hunks) {
            std::move(at(list, taken), at(list, hunk.first), std::back_inserter(result));
            std::vector<Item> replaced(std::move_iterator(at(list, hunk.first)),
                                       std::move_iterator(at(list, hunk.first + hunk.count)));
            taken = hunk.first + hunk.count;
            hunk.first = result.size();
            hunk.count = hunk.items.size();
            std::move(hunk.items.begin(), hunk.items.end(), std::back_inserter(result));
            hunk.items = std::move(replaced);
        }
        std::move(at(list, taken), list.end(), std::back_inserter(result));
        list = std::move(result);
    }

private:
    /// \p count items of the list from \p first on give way to \p items.
    struct Hunk {
        std::size_t first = 0;
        std::size_t count = 0;
        std::vector<Item> items;
    };
    /// So far apart equal items are found again behind a difference.
    static constexpr std::size_t REACH = 8;

    static auto at(std::vector<Item> & list, std::size_t index) {
        return list.begin() + static_cast<std::ptrdiff_t>(index);
    }

    void compare(const std::vector<Item> & before, std::vector<Item> & after, std::size_t first, std::size_t oldEnd,
                 std::size_t newEnd) {
        std::size_t i = first;
        std::size_t j = first;
        while (i < oldEnd || j < newEnd) {
            if (i < oldEnd && j < newEnd && before[i] == after[j]) {
                ++i;
                ++j;
                continue;
            }
            Hunk hunk{.first = i, .count = 0, .items = {}};
            std::size_t oldSkip = 0;
            std::size_t newSkip = 0;
            while (!meetAgain(before, after, i, oldEnd, j, newEnd, oldSkip, newSkip)) {
                if (i < oldEnd)
                    ++i;
                if (j < newEnd)
                    hunk.items.push_back(std::move(after[j++]));
            }
            i += oldSkip;
            hunk.count = i - hunk.first;
            std::move(at(after, j), at(after, j + newSkip), std::back_inserter(hunk.items));
            j += newSkip;
            m_hunks.push_back(std::move(hunk));
        }
    }

    /// Whether equal items, or both ends, lie within reach, and how many items are to be skipped to get there.
    static bool meetAgain(const std::vector<Item> & before, const std::vector<Item> & after, std::size_t i,
                          std::size_t oldEnd, std::size_t j, std::size_t newEnd, std::size_t & oldSkip,
                          std::size_t & newSkip) {
        if (i == oldEnd || j == newEnd) {
            oldSkip = oldEnd - i;
            newSkip = newEnd - j;
            return true;
        }
        for (std::size_t skip = 0; skip <= REACH; ++skip)
            for (oldSkip = 0; oldSkip <= skip; ++oldSkip) {
                newSkip = skip - oldSkip;
                if (i + oldSkip < oldEnd && j + newSkip < newEnd && before[i + oldSkip] == after[j + newSkip])
                    return true;
            }
        return false;
    }

    std::vector<Hunk> m_hunks;
};

} // namespace HYGRION

// The registry in memory: keys, and values of any type, in the order of insertion.
#pragma once

#include <algorithm>
#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/names.h"

namespace registry {

/// Items with a `name`, in the order of insertion, found by name whatever the case of A to Z. An
/// item keeps the spelling of its first insertion.
template <class Item>
class NamedList
{
public:
    NamedList() = default;
    NamedList(NamedList &&) noexcept = default;
    NamedList &operator=(NamedList &&) noexcept = default;

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    /// The item of that name, or null.
    Item *find(std::u16string_view name)
    {
        const auto found = byName_.find(folded(name));
        return found == byName_.end() ? nullptr : &*found->second;
    }
    const Item *find(std::u16string_view name) const
    {
        const auto found = byName_.find(folded(name));
        return found == byName_.end() ? nullptr : &*found->second;
    }

    /// The item of that name, created when there is none.
    Item &obtain(std::u16string_view name)
    {
        const auto [place, isNew] = byName_.try_emplace(folded(name));
        if (isNew) {
            place->second = items_.emplace(items_.end());
            place->second->name = name;
        }
        return *place->second;
    }

    /// False when there was none of that name.
    bool erase(std::u16string_view name)
    {
        const auto found = byName_.find(folded(name));
        if (found == byName_.end()) {
            return false;
        }
        items_.erase(found->second);
        byName_.erase(found);
        return true;
    }

    /// Whether any name begins with `prefix`.
    bool holdsAny(std::u16string_view prefix) const
    {
        const std::u16string start = folded(prefix);
        const auto first = byName_.lower_bound(start);
        return first != byName_.end() && first->first.starts_with(start);
    }

    /// Erases every item whose name begins with `prefix`.
    void eraseAll(std::u16string_view prefix)
    {
        const std::u16string start = folded(prefix);
        auto next = byName_.lower_bound(start);
        while (next != byName_.end() && next->first.starts_with(start)) {
            items_.erase(next->second);
            next = byName_.erase(next);
        }
    }

private:
    static std::u16string folded(std::u16string_view name)
    {
        std::u16string result(name);
        std::transform(result.begin(), result.end(), result.begin(), base::folded);
        return result;
    }

    std::list<Item> items_;
    std::map<std::u16string, typename std::list<Item>::iterator> byName_;
};

struct Value
{
    std::u16string name; ///< empty for the key's default value
    std::uint32_t type = 0;
    std::vector<std::uint8_t> data;
};

struct Key
{
    std::u16string name; ///< the whole path, from HKEY_... on
    NamedList<Value> values;
};

/// Every key that was created or is in the file. The keys above one exist too, without values.
using Hive = NamedList<Key>;

} // namespace registry

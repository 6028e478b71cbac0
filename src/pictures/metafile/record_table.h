#pragma once
// Finds by a record's number what a player does with it.

#include <algorithm>
#include <cstddef>

namespace lumidex::metafile {

template <class Record, class Play>
struct RecordEntry {
  Record record{};
  Play play = nullptr;
};

// Made of entries in any order while compiling, where a record with two entries is an error.
template <class Record, class Play, std::size_t count>
class RecordTable {
 public:
  using Entry = RecordEntry<Record, Play>;

  consteval explicit RecordTable(const Entry (&entries)[count]) {
    std::ranges::copy(entries, entries_);
    std::ranges::sort(entries_, {}, &Entry::record);
    if (std::ranges::adjacent_find(entries_, {}, &Entry::record) != std::end(entries_))
      throw "A record has two entries";
  }

  // Null for a record without an entry.
  Play Find(Record record) const {
    const Entry* const found = std::ranges::lower_bound(entries_, record, {}, &Entry::record);
    return found != std::end(entries_) && found->record == record ? found->play : nullptr;
  }

 private:
  Entry entries_[count];
};

}  // namespace lumidex::metafile

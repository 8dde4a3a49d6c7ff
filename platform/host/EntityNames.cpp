// The table of second words: only those that are not 0 stand in it, and they are few.
#include "platform/host/EntityNames.h"

#include <map>
#include <tuple>

namespace {

using Key = std::tuple<std::uint64_t, int, std::size_t>;

struct Word {
    std::string handle;
    std::uint64_t value;
};

// Ids are never given twice, so what closed drawings leave behind disturbs nobody.
std::map<Key, Word>& Words() {
    static std::map<Key, Word> words;
    return words;
}

Key KeyOf(const NamePlace& place) {
    return {place.owner.asOldId(), place.code, place.occurrence};
}

}  // namespace

void KeepSecondWord(const NamePlace& place, const std::string& handle, std::uint64_t word) {
    if (word == 0)
        Words().erase(KeyOf(place));
    else
        Words().insert_or_assign(KeyOf(place), Word{handle, word});
}

std::uint64_t SecondWord(const NamePlace& place, const std::string& handle) {
    const auto found = Words().find(KeyOf(place));
    return found != Words().end() && found->second.handle == handle ? found->second.value : 0;
}

// Which names come near, and in which order.
#include "facts/NearestNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "support/TableSwitch.h"

namespace {

using Names = std::vector<CString>;

// The definition, word by word: the cheapest of the three ways to deal with both texts' first characters.
class SlowDistance {
public:
    SlowDistance(const std::wstring& left, const std::wstring& right) : m_left(left), m_right(right) {}

    int From(std::size_t i, std::size_t j) {
        if (i == m_left.size() || j == m_right.size())
            return static_cast<int>(m_left.size() - i + m_right.size() - j);
        if (const auto known = m_known.find({i, j}); known != m_known.end())
            return known->second;
        const int replaced = From(i + 1, j + 1) + (m_left[i] == m_right[j] ? 0 : 1);
        return m_known[{i, j}] = std::min({replaced, From(i + 1, j) + 1, From(i, j + 1) + 1});
    }

private:
    const std::wstring& m_left;
    const std::wstring& m_right;
    std::map<std::pair<std::size_t, std::size_t>, int> m_known;
};

std::wstring RandomText(std::mt19937& random, std::size_t most) {
    constexpr std::wstring_view kLetters = L"abc甲乙é\U0001F600";
    std::wstring text(std::uniform_int_distribution<std::size_t>(0, most)(random), L' ');
    for (wchar_t& letter : text)
        letter = kLetters[std::uniform_int_distribution<std::size_t>(0, kLetters.size() - 1)(random)];
    return text;
}

// The rule, over that distance: those that hold the name or are held by it, then those of which at most half differ.
Names ByTheRule(const std::wstring& name, const std::vector<std::wstring>& candidates) {
    std::multimap<std::pair<bool, int>, const std::wstring*> ranked;  // of equal rank in the order they came in
    for (const std::wstring& candidate : candidates) {
        const int distance = SlowDistance(name, candidate).From(0, 0);
        const bool isHeld = candidate.find(name) != std::wstring::npos || name.find(candidate) != std::wstring::npos;
        const bool isNear = isHeld || 2 * distance <= static_cast<int>(std::max(name.size(), candidate.size()));
        if (!name.empty() && !candidate.empty() && isNear)
            ranked.insert({{!isHeld, distance}, &candidate});
    }
    Names names;
    for (const auto& [rank, candidate] : ranked)
        if (names.size() < 3 && std::find(names.begin(), names.end(), candidate->c_str()) == names.end())
            names.emplace_back(candidate->c_str());
    return names;
}

}  // namespace

TEST(NearestNamesTo, RandomNamesAreThoseOfTheRule) {
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        const std::wstring name = RandomText(random, 12);
        std::vector<std::wstring> candidates;
        Names names;
        for (int k = 0; k < 8; ++k) {
            candidates.push_back(RandomText(random, 12));
            names.emplace_back(candidates.back().c_str());
        }
        EXPECT_EQ(NearestNames(name.c_str(), names), ByTheRule(name, candidates)) << ToUtf8(name);
    }
}

TEST(NearestNamesTo, ANameDifferByCharacters) {
    EXPECT_EQ(NearestNames(L"abc", Names{L"acb"}), Names()) << "an exchange is two changes";
    EXPECT_EQ(NearestNames(L"abcd", Names{L"ABXY"}), (Names{L"ABXY"})) << "ASCII letters count without case";
    EXPECT_EQ(NearestNames(L"É", Names{L"é"}), Names()) << "and no others";
    EXPECT_EQ(NearestNames(L"\U0001F600甲", Names{L"乙甲"}), (Names{L"乙甲"})) << "one character of two";
}

TEST(NearestNamesTo, LongNamesAreThoseOfTheirFirstHundredCharacters) {
    const std::wstring hundred(100, L'甲');
    const CString shorter(hundred.substr(1).c_str());
    const CString longer((hundred + std::wstring(500, L'x')).c_str());
    EXPECT_EQ(NearestNames((hundred + L"乙丙").c_str(), Names{shorter, longer}), (Names{longer, shorter}));
    EXPECT_EQ(NearestNames(std::wstring(1000000, L'x').c_str(), Names{L"xx"}), (Names{L"xx"})) << "and soon";
}

TEST(NearestNamesTo, AName) {
    const Names names = {L"上海标准", L"国标大寒日", L"国标冬至日", L"北京大寒日", L"北京冬至日"};
    EXPECT_EQ(NearestNames(L"国标大寒", names), (Names{L"国标大寒日"})) << "the others differ in three of five";
    EXPECT_EQ(NearestNames(L"冬至", names), (Names{L"国标冬至日", L"北京冬至日"}))
        << "equally near: in their own order";
    EXPECT_EQ(NearestNames(L"国标冬寒日", names), (Names{L"国标大寒日", L"国标冬至日"}));
    EXPECT_EQ(NearestNames(L"新的北京冬至日", names), (Names{L"北京冬至日"})) << "held by it";
    EXPECT_EQ(NearestNames(L"广州", names), Names());
    EXPECT_EQ(NearestNames(L"", names), Names());
    EXPECT_EQ(NearestNames(L"上海", Names{L"", L"广州"}), Names());
}

TEST(NearestNamesTo, ANamePutsWhatHoldsItFirst) {
    EXPECT_EQ(NearestNames(L"abcd", Names{L"abce", L"xxabcdxxxxxxx", L"ABCD", L"bcd", L"abcde"}),
              (Names{L"ABCD", L"bcd", L"abcde"}));
    EXPECT_EQ(NearestNames(L"abcd", Names{L"abce", L"xxabcdxxxxxxx"}), (Names{L"xxabcdxxxxxxx", L"abce"}));
}

TEST(NearestNamesTo, ANameDifferInHalfOfTheLongerOnesCharactersAtMost) {
    EXPECT_EQ(NearestNames(L"abcd", Names{L"abxy"}), (Names{L"abxy"}));
    EXPECT_EQ(NearestNames(L"abcd", Names{L"axyz"}), Names());
    EXPECT_EQ(NearestNames(L"abcd", Names{L"abxyz"}), Names()) << "three of five";
}

TEST(NearestNamesTo, ANameAreEachThereOnce) {
    EXPECT_EQ(NearestNames(L"鼓楼", Names{L"鼓楼区", L"鼓楼区", L"鼓楼区", L"鼓楼镇", L"鼓楼区", L"钟鼓楼"}),
              (Names{L"鼓楼区", L"鼓楼镇", L"钟鼓楼"}));
}

TEST(JoinedNames, HaveTheLanguagesSeparatorBetweenThem) {
    EXPECT_EQ(JoinNames({}), L"");
    EXPECT_EQ(JoinNames({L"甲"}), L"甲");
    EXPECT_EQ(JoinNames({L"甲", L"乙\x1b", L"丙"}), L"甲、乙\xFFFD、丙");
    const TableSwitch english({{L"、", L", "}});
    EXPECT_EQ(JoinNames({L"甲", L"乙"}), L"甲, 乙");
}
